#include "mover/BulkReport.h"

#include "base/Text.h"
#include "base/Utf8.h"

namespace brindlet {

std::optional<BulkProgress> parseBulkProgress(std::string_view record) {
    if (!isValidUtf8(record)) return std::nullopt;
    const auto fields = nonEmptyPieces(record, '|');
    if (fields.size() != 3) return std::nullopt;
    const auto phase = fromRaw<Mover::Phase>(fields[0]);
    const auto done = parseInt64(fields[1]);
    const auto total = parseInt64(fields[2]);
    if (!phase || !done || !total) return std::nullopt;
    return BulkProgress{*phase, *done, *total};
}

std::optional<BulkResult> parseBulkResult(std::string_view output) {
    const auto fields = nonEmptyPieces(trimBlanksAndNewlines(output), '|');
    if (fields.empty()) return std::nullopt;
    const auto moved = parseInt64(fields[0]);
    if (!moved) return std::nullopt;
    BulkResult result{.moved = *moved};
    if (fields.size() < 3) return result;
    result.count = parseInt64(fields[1]).value_or(-1);
    result.madeIt = fields[2] == "true";
    result.stuck = fields.size() > 3 && fields[3] == "true";
    return result;
}

std::set<std::string> parseDoneIDs(std::string_view text) {
    std::set<std::string> ids;
    for (const auto line : nonEmptyPieces(text, '\n'))
        if (const auto id = trimBlanksAndNewlines(line); !id.empty()) ids.emplace(id);
    return ids;
}

}  // namespace brindlet
