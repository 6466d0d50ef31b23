#include <utility>

#include "base/Files.h"
#include "base/Task.h"
#include "base/Text.h"
#include "base/Utf8.h"
#include "mover/BulkReport.h"
#include "mover/MoveFiles.h"
#include "mover/Mover.h"
#include "mover/Resources.h"
#include "mover/ScriptError.h"
#include "platform/Clock.h"
#include "platform/ProcessRunner.h"
#include "platform/RunningApps.h"

namespace brindlet {
namespace {

constexpr double secondsBetweenPolls = 0.5;

MoveOutcome failed(std::string sentence) {
    return {0, {}, std::move(sentence)};
}

/// What the script's result comes to. The two diagnoses take everything back, even what the done
/// file holds: those messages are still, or again, in the source.
MoveOutcome diagnosed(const BulkResult& result, std::set<std::string> done,
                      const Mover::Request& request) {
    const auto& [items, account, source, destination] = request;
    if (result.stuck)
        return failed(account.displayLabel() + " tagged the message with " + destination +
                      " but left it in " + source +
                      ". Gmail treats folders as labels, so filing there never empties the inbox - "
                      "only Spam and Bin do. Nothing else was moved; choose Spam and run it "
                      "again.");
    if (result.moved > 0 && result.madeIt && result.count == 0)
        return failed(destination +
                      " was just created and the server put everything back. Try again now it "
                      "exists, or pick a folder that is already there.");
    return {result.moved, std::move(done), std::nullopt};
}

}  // namespace

MoveOutcome Mover::moveMessages(const Request& request, bool labelOnly,
                                const Progress& onProgress) {
    const auto& account = request.account;
    if (request.items.empty()) return {};
    if (account.address.empty())
        return failed(account.displayLabel() +
                      " is a local mailbox on this Mac, not a mail account - Brindlet can sort it "
                      "but can't move from it.");
    const MoveFiles moveFiles(services_.directories);
    moveFiles.prepare(request.items);
    const auto host = makeHost({account.address, request.destination, request.source, moveFiles.ids,
                                moveFiles.progress, moveFiles.done, labelOnly ? "1" : "0"});
    {
        Lock lock(mutex_);
        stopRequested_ = false;
        runningProcess_ = host;
    }
    auto outcome = runBulk(host, request, moveFiles, onProgress);
    setRunningProcess(nullptr);
    return outcome;
}

MoveOutcome Mover::runBulk(const std::shared_ptr<ChildProcess>& host, const Request& request,
                           const MoveFiles& moveFiles, const Progress& onProgress) {
    if (!host->launch()) return failed("Couldn't start AppleScript.");
    host->writeInput(resources::bulkMoveScript);
    // Nobody reads standard error during the polls, and a full pipe would stall the script.
    const auto errorBytes = std::make_shared<Locked<std::string>>();
    const auto drain =
        Task::start(TaskPriority::userInitiated,
                    [host, errorBytes](const CancelToken&) { errorBytes->set(host->readError()); });
    while (host->running()) {
        if (const auto progress = parseBulkProgress(files::read(moveFiles.progress).value_or("")))
            onProgress(progress->phase, progress->done, progress->total);
        // A stop ends the process, not the sleep.
        (void)services_.clock.sleep(secondsBetweenPolls, CancelToken());
    }
    host->wait();
    const std::string output = repairedUtf8(host->readOutput());
    drain.wait();
    auto done = parseDoneIDs(repairedUtf8(files::read(moveFiles.done).value_or("")));
    if (const auto result = parseBulkResult(output))
        return diagnosed(*result, std::move(done), request);

    MoveOutcome outcome{static_cast<std::int64_t>(done.size()), std::move(done), std::nullopt};
    if (!stopRequested()) outcome.error = bulkFailure(repairedUtf8(errorBytes->get()));
    return outcome;
}

std::string Mover::bulkFailure(std::string_view errorText) const {
    const std::string message =
        !services_.runningApps.isRunning("com.apple.mail") || tellsThatMailIsGone(errorText)
            ? "Mail closed before it finished."
            : withoutParts(lastErrorLine(errorText, "Mail refused the move."), " (-1728)");
    return std::string(trimSpacesAndTabs(message));
}

}  // namespace brindlet
