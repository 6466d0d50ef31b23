#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "sample/MailIndex.h"
#include "sample/MailSettings.h"
#include "sample/MessageMover.h"

namespace brindlet::sample {

/// A mail program that has a sample home for its mail: what it moves, readers of the files and of
/// the index see moved, and the next process that opens the home finds everything as this one left
/// it. The accounts are those of the home's settings; of the settings' behaviour, what is the
/// server's happens here, and what is the program's window or its scripting does not.
///
/// Time is virtual and stands still but for `advance`. Blocking, one thread; several processes may
/// have one home open.
class SimulatedMail {
  public:
    struct Mailbox {
        std::int64_t row = 0;
        /// In the settings' list.
        std::size_t account = 0;
        /// "/" between levels.
        std::string path;
    };

    /// Finishes or undoes what a killed process left, and lets the server do what it still meant
    /// to. None when the home has no settings or no index. The hook, for tests, is called at each
    /// step of a move.
    static std::unique_ptr<SimulatedMail> open(const std::string& home,
                                               std::function<void(MoveStep)> hook = {});

    const MailSettings& settings() const { return settings_; }
    const MailSettings::Account& account(std::size_t number) const {
        return settings_.accounts[number];
    }

    /// In the order of the index; none of an account that is switched off.
    std::vector<Mailbox> mailboxes(std::size_t account);
    std::optional<Mailbox> mailbox(std::int64_t row);
    /// By its path; with the same letter case if there is such a one, else with another.
    std::optional<Mailbox> mailboxAt(std::size_t account, std::string_view path);
    /// None when there is one of that path already.
    std::optional<Mailbox> makeMailbox(std::size_t account, const std::string& path);

    MailIndex& index() { return *index_; }

    /// The path of a message's file; none when it has none, or is not there.
    std::optional<std::string> messageFile(std::int64_t message);

    /// Who moves: on a Gmail account a script only adds a label, and a person takes the old one
    /// off.
    enum class MovedBy { script, person };
    /// False when the message is not in `from`, or the move fails. What the server still has to do
    /// about it comes with time.
    bool move(std::int64_t message, std::int64_t from, std::int64_t to, MovedBy by);

    void advance(double seconds);
    /// Lets pass whatever time the server needs to come to rest.
    void comeToRest();

  private:
    SimulatedMail(std::string home, MailSettings settings, std::unique_ptr<MailIndex> index,
                  std::function<void(MoveStep)> hook);

    std::optional<Mailbox> parsed(const MailIndex::Mailbox& row) const;
    MessageMover::Place place(const Mailbox& mailbox) const;
    bool moveLabel(std::int64_t message, const Mailbox& from, const Mailbox& to, MovedBy by);
    /// Now, or when the server gets round to it.
    bool refileInTime(std::int64_t message, std::int64_t to);
    /// The message's new row id, or 0.
    std::int64_t refile(std::int64_t message, std::int64_t to);
    void runLaterMoves();

    const std::string home_;
    const MailSettings settings_;
    const std::unique_ptr<MailIndex> index_;
    MessageMover mover_;
    std::map<std::int64_t, Mailbox> known_;
    /// Folders that this run has made.
    std::set<std::int64_t> fresh_;
    double now_ = 0;
};

/// The last component of a mailbox's path, which is what the mail program shows as its name.
std::string leafName(std::string_view path);

}  // namespace brindlet::sample
