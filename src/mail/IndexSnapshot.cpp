#include "base/Files.h"
#include "mail/MailRoot.h"
#include "mail/MailStore.h"
#include "platform/Directories.h"

namespace brindlet {

/// The copy's place is fixed and the files stay after the read: the next one overwrites them. A
/// side file that the mail program does not have just now leaves an older copy of it standing; the
/// database tells by itself whether that still belongs to it.
std::optional<std::string> MailStore::snapshotIndex() const {
    const auto& root = mailRoot();
    if (!root) return std::nullopt;
    const std::string source = liveIndexPath(*root);
    const std::string copy = services_.directories.temporary() + "/brindlet-index.db";
    for (const char* suffix : {"", "-wal", "-shm"}) {
        if (!files::exists(source + suffix)) continue;
        files::remove(copy + suffix);
        if (!files::copy(source + suffix, copy + suffix)) return std::nullopt;
    }
    return copy;
}

}  // namespace brindlet
