#include <utility>

#include "base/Files.h"
#include "base/Text.h"
#include "mover/MenuReport.h"
#include "mover/Mover.h"
#include "mover/Resources.h"
#include "mover/TemporaryPath.h"
#include "platform/Locale.h"

namespace brindlet {
namespace {

constexpr int mostAttempts = 3;
constexpr int smallestBatch = 25;

bool contains(std::string_view text, std::string_view part) {
    return text.find(part) != std::string_view::npos;
}

/// A batch that was too much for the message list may go through at half its size.
int smallerBatch(int size) {
    return size > 49 ? size / 2 : smallestBatch;
}

}  // namespace

/// How far the batches of one call have come.
struct Mover::Batches {
    std::set<std::string> remaining;
    /// Those that the mail program no longer lists in the source.
    std::set<std::string> gone;
    std::int64_t total = 0;
    int largest = 200;
    /// Batches in a row that moved nothing, and one.
    int attempt = 1;

    std::int64_t moved() const { return static_cast<std::int64_t>(gone.size()); }
};

MoveOutcome Mover::moveByMenu(const Request& request, const Progress& onProgress) {
    if (request.items.empty()) return {};
    {
        Lock lock(mutex_);
        stopRequested_ = false;
    }
    Batches batches;
    for (const auto& item : request.items)
        if (!item.messageID.empty()) batches.remaining.insert(item.messageID);
    batches.total = static_cast<std::int64_t>(batches.remaining.size());

    const std::string listPath = temporaryPath(services_.directories, "ui", freshSuffix());
    auto error = moveBatches(request, listPath, batches, onProgress);
    files::remove(listPath);
    return {batches.moved(), std::move(batches.gone), std::move(error)};
}

/// None when nothing remains, when the rest is no longer there, and after a stop between batches.
std::optional<std::string> Mover::moveBatches(const Request& request, const std::string& listPath,
                                              Batches& batches, const Progress& onProgress) {
    while (!batches.remaining.empty()) {
        if (stopRequested()) return std::nullopt;
        files::replace(listPath, menuList(batches.remaining));
        auto [output, error] =
            runScript(resources::menuMoveScript,
                      {request.account.address, request.source, request.destination, listPath,
                       std::to_string(batches.largest)});
        if (error) return std::move(error);
        const auto result = parseMenuResult(output);
        if (!result) return output.empty() ? "Mail said nothing back." : std::move(output);
        if (result->gone != 0) {
            // Which of the picked ones have left is what counts, not how many were asked for.
            auto left = parseGoneIDs(result->rest);
            for (const auto& id : left) batches.remaining.erase(id);
            batches.gone.merge(left);
            onProgress(Phase::move, batches.moved(), batches.total);
            batches.attempt = 1;
            continue;
        }
        const auto reason = trimBlanksAndNewlines(result->rest);
        if (contains(reason, "none of them are in")) return std::nullopt;
        if (contains(reason, "viewer") || contains(reason, "front app")) return std::string(reason);
        if (batches.attempt >= mostAttempts)
            return "Mail stopped moving after " + services_.locale.grouped(batches.moved()) +
                   " of " + services_.locale.grouped(batches.total) +
                   ". Its message list turns unreliable on very long runs - quit Mail, open it "
                   "again, and Brindlet will carry on with the rest.";
        batches.largest = smallerBatch(batches.largest);
        ++batches.attempt;
    }
    return std::nullopt;
}

}  // namespace brindlet
