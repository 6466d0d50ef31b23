#include "mover/MoveFiles.h"

#include "base/Files.h"
#include "mover/TemporaryPath.h"

namespace brindlet {

MoveFiles::MoveFiles(const Directories& directories) {
    const std::string suffix = freshSuffix();
    ids = temporaryPath(directories, "ids", suffix);
    progress = temporaryPath(directories, "move", suffix);
    done = temporaryPath(directories, "moved-ids", suffix);
}

void MoveFiles::prepare(const std::vector<PendingMove::Item>& items) const {
    // No line break after the last row: the script would count an empty one.
    std::string rows;
    for (const auto& item : items) {
        if (!rows.empty()) rows += '\n';
        rows.append(std::to_string(item.id)).append("\t").append(item.messageID);
    }
    files::replace(done, "");
    files::replace(ids, rows);
    files::replace(progress, "scan|0|0");
}

}  // namespace brindlet
