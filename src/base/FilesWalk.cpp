#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>

#include "base/Files.h"

namespace brindlet::files {
namespace {

/// Some file systems do not tell an entry's kind in the listing.
bool isDirectoryEntry(int directory, const char* name, unsigned char kind) {
    if (kind != DT_UNKNOWN) return kind == DT_DIR;
    struct stat status {};
    return ::fstatat(directory, name, &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISDIR(status.st_mode);
}

/// Calls `visit` with the name and the kind of each entry of an open directory, and closes it.
template <class Visit>
void eachEntry(int directory, Visit visit) {
#if defined(__linux__)
    // Folders of mail come by the thousand and are small: the C library's reader would spend more
    // on preparing for each than on reading it.
    alignas(dirent64) std::array<char, 32 * 1024> listing;
    while (true) {
        const auto got = ::getdents64(directory, listing.data(), listing.size());
        if (got <= 0) break;
        for (std::ptrdiff_t at = 0; at < got;) {
            const auto* entry = reinterpret_cast<const dirent64*>(listing.data() + at);
            visit(entry->d_name, entry->d_type);
            at += entry->d_reclen;
        }
    }
    ::close(directory);
#else
    DIR* const open = ::fdopendir(directory);
    if (!open) {
        ::close(directory);
        return;
    }
    while (const dirent* entry = ::readdir(open)) visit(entry->d_name, entry->d_type);
    ::closedir(open);
#endif
}

}  // namespace

bool walk(const std::string& root, TreeVisitor& visitor) {
    std::vector<std::string> waiting{root};
    int follow = 0;  // the root may be a link
    while (!waiting.empty()) {
        const std::string path = std::move(waiting.back());
        waiting.pop_back();
        const int directory = ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | follow);
        if (directory < 0 && follow == 0) return false;
        follow = O_NOFOLLOW;
        if (directory < 0) continue;
        visitor.directory(path);
        eachEntry(directory, [&](const char* name, unsigned char kind) {
            if (std::string_view(name) == "." || std::string_view(name) == "..") return;
            visitor.entry(name);
            if (isDirectoryEntry(directory, name, kind)) waiting.push_back(path + '/' + name);
        });
    }
    return true;
}

}  // namespace brindlet::files
