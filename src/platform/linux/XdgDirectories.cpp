#include "platform/linux/XdgDirectories.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string_view>
#include <vector>

#include "base/Files.h"

namespace brindlet {
namespace {

std::string withoutTrailingSlash(std::string path) {
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    return path;
}

/// The value of a variable that holds an absolute path; empty for any other.
std::string absolutePath(const Environment& environment, const char* name) {
    const char* const value = environment(name);
    return value && value[0] == '/' ? withoutTrailingSlash(value) : std::string();
}

std::string homeByPasswordDatabase() {
    std::vector<char> buffer(16 * 1024);
    passwd entry{};
    passwd* found = nullptr;
    if (::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 || !found ||
        !found->pw_dir || found->pw_dir[0] != '/')
        return "/";
    return withoutTrailingSlash(found->pw_dir);
}

std::string below(const std::string& directory, std::string_view name) {
    return (directory == "/" ? std::string() : directory) + '/' + std::string(name);
}

/// Creates the directory for its owner alone, its parents as anybody would.
void createPrivate(const std::string& path) {
    files::createDirectories(path.substr(0, path.rfind('/')));
    ::mkdir(path.c_str(), 0700);
}

}  // namespace

XdgDirectories::XdgDirectories(const Environment& environment) {
    home_ = absolutePath(environment, "HOME");
    if (home_.empty()) home_ = homeByPasswordDatabase();
    const auto base = [&](const char* variable, std::string_view fallback) {
        const auto given = absolutePath(environment, variable);
        return given.empty() ? below(home_, fallback) : given;
    };
    temporary_ = below(base("XDG_CACHE_HOME", ".cache"), "brindlet");
    configuration_ = below(base("XDG_CONFIG_HOME", ".config"), "brindlet");
    const char* const store = environment("BRINDLET_STORE");
    storeGiven_ = store != nullptr;
    store_ = store ? withoutTrailingSlash(store)
                   : below(base("XDG_DATA_HOME", ".local/share"), "Brindlet");
}

std::string XdgDirectories::temporary() const {
    createPrivate(temporary_);
    struct stat status {};
    // Copies of the mail index lie here, so a folder that others could read is closed to them.
    if (::lstat(temporary_.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
        status.st_uid == ::getuid() && (status.st_mode & 077) != 0)
        ::chmod(temporary_.c_str(), 0700);
    return temporary_;
}

std::string XdgDirectories::store() const {
    if (storeGiven_)
        files::createDirectories(store_);
    else
        createPrivate(store_);
    return store_;
}

std::string XdgDirectories::configuration() const {
    createPrivate(configuration_);
    return configuration_;
}

}  // namespace brindlet
