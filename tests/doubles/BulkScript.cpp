#include "doubles/BulkScript.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

#include "base/Files.h"

namespace brindlet::doubles {
namespace {

// Places in the bulk script's command line.
constexpr std::size_t idFilePlace = 5;
constexpr std::size_t doneFilePlace = 7;

std::vector<std::string> askedFor(const std::string& idFile) {
    std::vector<std::string> ids;
    const auto text = files::read(idFile).value_or("");
    std::size_t at = 0;
    while (at < text.size()) {
        const auto tab = text.find('\t', at);
        const auto end = std::min(text.find('\n', at), text.size());
        ids.push_back(text.substr(tab + 1, end - tab - 1));
        at = end + 1;
    }
    return ids;
}

}  // namespace

ScriptedProcessRunner::Script bulkScript(Bulk bulk) {
    return [bulk = std::move(bulk)](const auto& run) {
        ScriptedProcessRunner::Reply reply;
        if (run.arguments.size() <= doneFilePlace) return reply;  // a listing: Mail says nothing
        const auto ids = bulk.some ? bulk.landed : askedFor(run.arguments[idFilePlace]);
        std::string done;
        for (const auto& id : ids) done += id + "\n";
        files::write(run.arguments[doneFilePlace], done);
        reply.error = bulk.error;
        if (bulk.error.empty())
            reply.output =
                std::to_string(bulk.moved < 0 ? std::ssize(ids) : bulk.moved) + "|7|false|false\n";
        return reply;
    };
}

}  // namespace brindlet::doubles
