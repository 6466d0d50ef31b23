#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/EnumInfo.h"
#include "base/ThreadSafety.h"
#include "mail/MailAccount.h"
#include "mover/MoveOutcome.h"
#include "platform/Services.h"
#include "stores/PendingMove.h"

namespace brindlet {

class ChildProcess;
struct MoveFiles;

/// Makes the mail program move messages. Each move is one or more runs of the script host, with the
/// script on its standard input; there is no other bridge to the mail program.
///
/// A program has one Mover, which outlives its runs. The moves block, for minutes if need be, and
/// belong on a background task; one runs at a time, which the caller sees to. `stopMove` may come
/// from any thread. There is no time limit.
class Mover {
  public:
    /// How far a bulk move is: `scan` until the script has first reported, `move` from then on.
    enum class Phase { scan, move };
    /// Called on the thread that moves. In `move`, `done` messages of `total` have been moved.
    using Progress = std::function<void(Phase, std::int64_t done, std::int64_t total)>;

    /// What to move.
    struct Request {
        std::vector<PendingMove::Item> items;
        MailAccount account;
        /// Full names of mailboxes.
        std::string source;
        std::string destination;
    };
    struct ScriptOutput {
        std::string output;
        /// A finished sentence for the person.
        std::optional<std::string> error;
    };

    /// Keeps copies of the references; the adapters outlive it.
    explicit Mover(Services services);

    /// Runs a script to its end. A script must not write more to standard error than a pipe holds
    /// while its standard output is open: the one is read after the other.
    ScriptOutput runScript(std::string_view script, const std::vector<std::string>& arguments);

    /// Moves the messages in one run of a script that finds each by its number or, where that has
    /// changed, by its Message-ID. `labelOnly` says that the person chose the destination in the
    /// knowledge that it only tags, so that the script need not find that out with the first
    /// message. A stop is no error. Leaves its three files in the temporary folder.
    MoveOutcome moveMessages(const Request& request, bool labelOnly, const Progress& onProgress);

    /// Moves the messages as a person would, by the mail program's own menu, batch by batch: on
    /// Gmail only this takes them out of the inbox. It needs the permission to use other programs'
    /// menus, and the mail program comes to the front.
    MoveOutcome moveByMenu(const Request& request, const Progress& onProgress);

    /// Asks the present run to end, and returns at once. What it has moved by then stays moved.
    /// Nothing when none runs; a move that starts later is not stopped.
    void stopMove();

  private:
    struct Batches;
    std::shared_ptr<ChildProcess> makeHost(std::vector<std::string> arguments) const;
    /// What a stop ends from now on; null for nothing.
    void setRunningProcess(std::shared_ptr<ChildProcess> process);
    bool stopRequested();
    MoveOutcome runBulk(const std::shared_ptr<ChildProcess>& host, const Request& request,
                        const MoveFiles& moveFiles, const Progress& onProgress);
    std::string bulkFailure(std::string_view errorText) const;
    std::optional<std::string> moveBatches(const Request& request, const std::string& listPath,
                                           Batches& batches, const Progress& onProgress);

    Services services_;
    Mutex mutex_;
    bool stopRequested_ BRINDLET_GUARDED_BY(mutex_) = false;
    std::shared_ptr<ChildProcess> runningProcess_ BRINDLET_GUARDED_BY(mutex_);
};

template <>
struct EnumInfo<Mover::Phase> {
    static constexpr std::array<std::pair<Mover::Phase, std::string_view>, 2> all{{
        {Mover::Phase::scan, "scan"},
        {Mover::Phase::move, "move"},
    }};
};

}  // namespace brindlet
