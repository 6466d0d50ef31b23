#include "words/GmailNoticeWords.h"

#include "mail/GmailAccount.h"
#include "session/AppState.h"
#include "words/GooglePages.h"

namespace brindlet {

// Some of it speaks of a consent screen and of a token, though an app password needs neither: that
// is what people have read elsewhere and worry about.
GmailPermissionWords::GmailPermissionWords()
    : lines{{"info.circle",
             "Google's consent screen will say Brindlet can read, send and delete your mail. That "
             "sentence is Google's, and it covers the only Gmail permission that exists - there is "
             "no smaller one."},
            {"checkmark.circle",
             "What Brindlet does with it: two commands. Put a label on a message, and take the "
             "Inbox label off. That is the whole of it."},
            {"checkmark.circle",
             "It never sends mail, never deletes mail, and never empties anything. Junk keeps its "
             "label and stays in All Mail for good, which is why Brindlet files into a folder "
             "rather than Spam."},
            {"lock",
             "Your mail stays on this Mac and on Google's servers. Brindlet has no server; there "
             "is nowhere else for it to go."},
            {"key",
             std::string("The sign-in is Google's own page. Brindlet never sees your password. The "
                         "token it gets back is kept in your Keychain and you can revoke it any "
                         "time at ") +
                 googlePages::permissions + ", or with Disconnect above."}} {}

std::optional<GmailNoticeWords> gmailNoticeWords(const AppState& state) {
    if (!*state.account || !isGmail(**state.account)) return std::nullopt;
    GmailNoticeWords words;
    words.connected = state.gmailConnected->contains((*state.account)->address);
    if (words.connected) {
        words.symbol = "checkmark.seal.fill";
        words.tone = Tone::green;
        words.title = "Gmail connected - moves are instant and silent";
        words.text =
            "Brindlet files mail through Gmail directly - nothing takes over your Mac. The app "
            "password sits in your Keychain; the macOS prompt to allow access is Brindlet reading "
            "it to reach Gmail.";
        words.control = "Disconnect";
    } else {
        words.symbol = "exclamationmark.triangle.fill";
        words.tone = Tone::orange;
        words.title = "Gmail needs one connection before junk can leave the inbox";
        words.text =
            "Gmail has labels, not folders. Apple Mail can tag a message but cannot take it out of "
            "your inbox, so junk piles up in both places.";
        words.control = "Connect Gmail";
    }
    return words;
}

}  // namespace brindlet
