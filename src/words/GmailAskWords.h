#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "words/Mark.h"
#include "words/SymbolLine.h"

namespace brindlet {

/// How far the person has come with the question about Gmail.
struct GmailAsk {
    /// The panel for the app password is open.
    bool connecting = false;
    /// The app password in the field is being tested.
    bool checking = false;
    /// The field holds as many characters as an app password has.
    bool longEnough = false;
    /// What came of the last test.
    std::optional<std::string> status;

    friend bool operator==(const GmailAsk&, const GmailAsk&) = default;
};

/// The words of the question whether Brindlet may file mail on Gmail by itself.
struct GmailAskWords {
    std::string symbol = "envelope.badge.shield.half.filled";
    std::string title = "Gmail needs your permission to move mail";
    std::string why =
        "Google treats folders as labels. Apple Mail can tag a message for you, but it cannot take "
        "that message out of a Gmail inbox - so without this, junk gets labelled and stays exactly "
        "where it is.";

    std::string allowSymbol = "checkmark.circle.fill";
    std::string allowTitle = "If you allow";
    std::string allowText =
        "Junk actually leaves your inbox and lands in the folder you chose. Nothing is ever "
        "deleted.";
    std::string declineTitle = "If you don't";
    std::string declineText =
        "Brindlet still sorts and labels everything - you just have to move it yourself, or it "
        "stays in your inbox.";
    std::vector<SymbolLine> promises;

    // The panel for the app password.
    std::string explanation =
        "Google calls it an app password. It is not your Google password: it works for this app "
        "only, and you can revoke it on its own without touching your account.";
    std::string warningSymbol = "exclamationmark.shield.fill";
    std::string warning =
        "You need 2-Step Verification switched on first. Without it Google just says app passwords "
        "are \u201cnot available for your account\u201d and offers no way to make one.";
    std::string openPage = "Open Google's app password page";
    std::string fieldTitle = "Name it Brindlet, then paste the 16 characters here:";
    std::string prompt = "xxxx xxxx xxxx xxxx";
    std::string keychain =
        "It is kept in your Mac's Keychain, encrypted behind your login password - not in a file. "
        "macOS will ask you to allow Brindlet to read it back; that prompt is Brindlet fetching "
        "this code to talk to Gmail, and nothing else.";

    std::string decline = "Not now - just label them";

    GmailAskWords();

    friend bool operator==(const GmailAskWords&, const GmailAskWords&) = default;
};

/// The button that goes on.
struct GmailAskButton {
    std::string label;
    bool enabled = false;

    friend bool operator==(const GmailAskButton&, const GmailAskButton&) = default;
};

GmailAskButton gmailAskButton(const GmailAsk& ask);
/// What came of the last test; empty before the first.
Mark gmailAskStatus(const GmailAsk& ask);

/// As many characters, blanks included, as the field must hold.
inline constexpr std::size_t appPasswordLength = 16;
inline constexpr std::string_view gmailConnectedStatus =
    "Connected. Junk will really leave this inbox now.";

}  // namespace brindlet
