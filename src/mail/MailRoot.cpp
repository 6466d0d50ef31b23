#include "mail/MailRoot.h"

#include <algorithm>
#include <array>

#include "base/Files.h"
#include "base/Text.h"
#include "mail/MailStore.h"
#include "platform/Directories.h"

namespace brindlet {
namespace {

bool oneByteReads(const std::string& path) {
    std::array<char, 1> byte{};
    return files::readPrefix(path, byte).value_or(0) > 0;
}

}  // namespace

MailStore::MailStore(Services services) : services_(services) {}

const std::optional<std::string>& MailStore::mailRoot() const {
    Lock lock(rootMutex_);
    if (!rootKnown_) root_ = findMailRoot();
    rootKnown_ = true;
    return root_;
}

/// Versions sort by the number after the "V"; what has none counts as 0 and comes after them.
std::optional<std::string> MailStore::findMailRoot() const {
    const std::string mail = services_.directories.home() + "/Library/Mail";
    auto names = files::list(mail).value_or(std::vector<std::string>());
    std::erase_if(names, [](const std::string& name) { return !name.starts_with('V'); });
    std::stable_sort(names.begin(), names.end(), [](std::string_view left, std::string_view right) {
        return parseInt64(left.substr(1)).value_or(0) > parseInt64(right.substr(1)).value_or(0);
    });
    for (const std::string& name : names) {
        std::string root = mail + '/' + name;
        if (files::exists(liveIndexPath(root))) return root;
    }
    return std::nullopt;
}

bool MailStore::canReadIndex() const {
    const auto& root = mailRoot();
    return root && oneByteReads(liveIndexPath(*root));
}

void MailStore::touchMailData() const {
    const auto& root = mailRoot();
    if (!root) return;
    for (const std::string& path : {liveIndexPath(*root), *root + "/MailData"}) {
        oneByteReads(path);
        files::list(path);
    }
    files::list(*root);
}

}  // namespace brindlet
