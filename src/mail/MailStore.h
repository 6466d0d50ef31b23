#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/ThreadSafety.h"
#include "mail/AccountDiscovery.h"
#include "mail/MailAccount.h"
#include "mail/MailMessage.h"
#include "mail/MessagePaths.h"
#include "platform/Services.h"

namespace brindlet {

/// Reads the mail program's index and message files. Every read of the index works on a fresh
/// private copy and closes it again; the live database is never opened but for the one-byte test
/// and the touch at launch.
///
/// All operations block, run on the caller's thread (any but the main one, save for `touchMailData`
/// and `openInMail`) and never fail loudly: a failure is an empty result, which may also mean that
/// the permission was lost; `canReadIndex` tells the two apart. Index reads take turns, since they
/// share the copy's fixed place.
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

    /// How much of a message file is ever read.
    static constexpr std::size_t bytesRead = 120'000;

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
    /// means no cap, `since` (seconds since 1970) below 1 no cut-off. A cap does not make the read
    /// quicker.
    std::vector<MailMessage> messages(std::int64_t mailbox, std::int64_t limit,
                                      std::int64_t since) const;
    /// Lower-cased addresses that the person has written to.
    std::set<std::string> correspondents() const;
    /// The accounts with their folders, in the order that the screens show. With `identify`, or
    /// when nothing is remembered, the mail program and the system's account database are asked for
    /// names and addresses; otherwise what they last said stands. With `mergeListing` the folders
    /// are those that the mail program lists. Asking it starts it, and may take seconds.
    std::vector<MailAccount> loadAccounts(bool identify, bool mergeListing) const;
    /// What the mail program's scripting answers; empty when it cannot be asked.
    MailboxNames listMailboxNames() const;
    std::vector<MailIdentity> listIdentities() const;

    /// The message files below an account's directory, by the number in their names. Of a whole and
    /// a partial file of one message, either may be given.
    MessagePaths locateMessageFiles(std::string_view account) const;
    /// Reads at most the first `bytesRead` bytes of the file. `limit` is in characters of body.
    static Parsed parseMessageFile(const std::string& path, std::int64_t limit);
    /// The same with a buffer that is reused from call to call; no more is read than it holds.
    static Parsed parseMessageFile(const std::string& path, std::int64_t limit,
                                   std::span<char> buffer);
    /// Takes apart what a message file starts with.
    static Parsed parseMessage(std::string_view bytes, std::int64_t limit);
    /// Readable text out of a raw body: tags and entities become blanks, and so does white space.
    /// Ill-formed UTF-8 is repaired. `limit` is in characters; below 1 nothing is given.
    static std::string visibleText(std::string_view raw, std::int64_t limit);
    /// The link that opens a message in the mail program, for `Desktop::openLink`. None for an id
    /// that makes no address: an empty one, one with blanks or control characters, broken UTF-8.
    static std::optional<std::string> messageLink(std::string_view messageID);
    /// Does nothing without a link. Main thread.
    void openInMail(std::string_view messageID) const;

    /// Adds the folder that one row of the mailbox query stands for to its account, which is made
    /// when it is the first; a row of another form is dropped.
    static void parseMailboxRow(std::int64_t id, std::string_view url, std::int64_t filed,
                                std::int64_t labelled, std::vector<MailAccount>& accounts);

  private:
    struct Identified {
        std::string address;
        std::string name;
    };
    /// By account id.
    using IdentityCache = std::map<std::string, Identified>;

    std::optional<std::string> findMailRoot() const;
    std::vector<MailAccount> readAccounts() const;
    void identify(std::vector<MailAccount>& accounts, bool afresh) const;
    std::optional<std::string> snapshotIndex() const BRINDLET_REQUIRES(indexTurn_);

    Services services_;
    mutable Mutex rootMutex_;
    mutable bool rootKnown_ BRINDLET_GUARDED_BY(rootMutex_) = false;
    mutable std::optional<std::string> root_;      // never changes once it is known
    mutable Mutex indexTurn_;                      // held from the copy to the close
    mutable Mutex accountsTurn_;                   // the same for the account database
    mutable Locked<IdentityCache> identityCache_;  // empty before the first identification
};

}  // namespace brindlet
