#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/ThreadSafety.h"
#include "mail/MailAccount.h"
#include "mail/MailMessage.h"
#include "mail/MessagePaths.h"
#include "platform/Services.h"

namespace brindlet {

/// Reads the mail program's index and message files. Every read of the index works on a fresh
/// private copy and closes it again; the live database is never opened but for the one-byte test.
///
/// All operations block, run on the caller's thread (any but the main one) and never fail loudly: a
/// failure is an empty result, which may also mean that the permission was lost; `canReadIndex`
/// tells the two apart. Index reads take turns, since they share the copy's fixed place.
class MailStore {
  public:
    /// What one message file yields.
    struct Parsed {
        /// One line of visible text, as UTF-8.
        std::string body;
        /// Without angle brackets; none when the header has none.
        std::optional<std::string> messageID;

        friend bool operator==(const Parsed&, const Parsed&) = default;
    };

    /// Keeps copies of the references; the adapters outlive it.
    explicit MailStore(Services services);

    /// The mail program's newest data directory, found once at the first use and kept, "none"
    /// included.
    const std::optional<std::string>& mailRoot() const;
    /// True when one byte of the live index can be read.
    bool canReadIndex() const;
    /// Touches the mail data at launch, so that the system lists the program among those that ask
    /// for access.
    void touchMailData() const;

    /// The rows of a mailbox, newest first; of a label where no row is filed in it. `limit` below 1
    /// means no cap, `since` (seconds since 1970) below 1 no cut-off.
    std::vector<MailMessage> messages(std::int64_t mailbox, std::int64_t limit,
                                      std::int64_t since) const;
    /// Lower-cased addresses that the person has written to.
    std::set<std::string> correspondents() const;
    /// The accounts with their folders, in the order that the screens show.
    std::vector<MailAccount> loadAccounts(bool identify, bool mergeListing) const;

    /// The message files below an account's directory, by the number in their names.
    MessagePaths locateMessageFiles(std::string_view account) const;
    /// Reads at most the first 120,000 bytes of the file. `limit` is in characters of body.
    static Parsed parseMessageFile(const std::string& path, std::size_t limit);
    /// The same with a read buffer that is reused from call to call.
    static Parsed parseMessageFile(const std::string& path, std::size_t limit, std::string& buffer);
    /// Readable text out of a raw body: tags and entities become blanks, and so does white space.
    static std::string visibleText(std::string_view raw, std::size_t limit);
    /// The link that opens a message in the mail program, for `Desktop::openLink`.
    static std::string messageLink(std::string_view messageID);
    void openInMail(std::string_view messageID) const;

    using FoldersByAccount = std::map<std::string, std::vector<MailFolder>>;
    /// Adds the folder that one row of the mailbox query stands for; a row of another form is
    /// dropped.
    static void parseMailboxRow(std::int64_t id, std::string_view url, std::int64_t filed,
                                std::int64_t labelled, FoldersByAccount& folders);

  private:
    std::optional<std::string> snapshotIndex() const BRINDLET_REQUIRES(indexTurn_);
    std::string indexPath() const;

    Services services_;
    mutable Mutex rootMutex_;
    mutable bool rootKnown_ BRINDLET_GUARDED_BY(rootMutex_) = false;
    mutable std::optional<std::string> root_;
    mutable Mutex indexTurn_;  // held from the copy to the close
};

}  // namespace brindlet
