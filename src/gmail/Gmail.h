#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/Secret.h"
#include "imap/Imap.h"

namespace brindlet {

class KeyStore;
class TlsConnector;

/// Where Gmail's own server is; only the demo and the tests name another.
struct GmailServer {
    std::string host = "imap.gmail.com";
    std::uint16_t port = 993;
};

/// Files mail on Gmail, where a folder is a label: the destination's label is added and the inbox's
/// taken away, in a conversation with Gmail's own server. The app password that the person made for
/// it is kept in the system's safe for passwords, one for each address; an account is connected
/// while there is one.
///
/// Every operation but `hasAppPassword` blocks, without a time limit, and belongs on a background
/// task; each call is a conversation of its own, so that several may go on side by side. Nothing is
/// tried twice.
class Gmail {
  public:
    /// What a person types to connect an account.
    struct SignIn {
        std::string address;
        /// With the blanks that it is shown with, or without: they do not count.
        Secret appPassword;
    };
    struct Filing {
        /// Message-IDs without angle brackets.
        std::vector<std::string> ids;
        std::string address;
        std::string label;
        bool removeInbox = false;
    };
    struct Filed {
        /// How many of the ids were found, an id that stands twice counted twice. 0 with an error,
        /// although labels may have been added.
        std::int64_t count = 0;
        /// A sentence for the person.
        std::optional<std::string> error;

        friend bool operator==(const Filed&, const Filed&) = default;
    };

    /// Both outlive it.
    Gmail(KeyStore& keys, TlsConnector& connector, GmailServer server = {});

    /// In place of an earlier one. Nothing when there is no password but blanks. That the safe
    /// refuses it is not noticed: the account is then not connected.
    void saveAppPassword(const SignIn& signIn);
    std::optional<Secret> readAppPassword(const std::string& address);
    void forgetAppPassword(const std::string& address);
    /// Only looks, and asks the person for nothing.
    bool hasAppPassword(const std::string& address);

    /// Signs in, opens the inbox and leaves. None when all is well, else a sentence for the person.
    std::optional<std::string> testAppPassword(const SignIn& signIn);
    /// Signed in with the password that is kept. None when there is none or it did not work.
    std::optional<Imap> openGmailSession(const std::string& address);
    /// Messages that the account does not have are left out without a word.
    Filed fileThroughGmail(const Filing& filing);

  private:
    Imap conversation();

    KeyStore& keys_;
    TlsConnector& connector_;
    GmailServer server_;
};

}  // namespace brindlet
