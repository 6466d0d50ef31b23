#include "Floors.h"

#include <dirent.h>
#include <fcntl.h>
#include <sqlite3.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <functional>
#include <string_view>

namespace brindlet::bench::floors {
namespace {

struct Entry {
    std::uint64_t inode;
    std::int64_t offset;
    unsigned short length;
    unsigned char type;
    char name[1];
};

void eachEntry(const std::string& directory,
               const std::function<void(std::string_view, unsigned char)>& visit) {
    const int fd = ::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    alignas(Entry) static char buffer[32 * 1024];
    std::vector<std::string> below;
    while (true) {
        const long got = ::syscall(SYS_getdents64, fd, buffer, sizeof buffer);
        if (got <= 0) break;
        for (long at = 0; at < got;) {
            const auto* entry = reinterpret_cast<const Entry*>(buffer + at);
            at += entry->length;
            const std::string_view name = entry->name;
            if (name == "." || name == "..") continue;
            visit(name, entry->type);
            if (entry->type == DT_DIR) below.emplace_back(name);
        }
    }
    ::close(fd);
    for (const std::string& name : below) {
        const std::string path = directory + '/' + name;
        eachEntry(path, visit);
    }
}

void eachMessageFile(const std::string& directory,
                     const std::function<void(const std::string&)>& visit) {
    std::vector<std::string> names;
    std::vector<std::string> below;
    DIR* const open = ::opendir(directory.c_str());
    if (!open) return;
    while (const dirent* entry = ::readdir(open)) {
        const std::string_view name = entry->d_name;
        if (name == "." || name == "..") continue;
        if (entry->d_type == DT_DIR)
            below.emplace_back(name);
        else if (name.ends_with(".emlx"))
            names.emplace_back(name);
    }
    ::closedir(open);
    for (const std::string& name : names) visit(directory + '/' + name);
    for (const std::string& name : below) eachMessageFile(directory + '/' + name, visit);
}

}  // namespace

std::size_t walk(const std::string& root) {
    std::size_t entries = 0;
    eachEntry(root, [&](std::string_view, unsigned char) { ++entries; });
    return entries;
}

std::vector<std::string> messageFiles(const std::string& root) {
    std::vector<std::string> paths;
    eachMessageFile(root, [&](const std::string& path) { paths.push_back(path); });
    return paths;
}

std::size_t readOnce(const std::string& path) {
    static char buffer[120'000];
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return 0;
    const auto got = ::read(fd, buffer, sizeof buffer);
    ::close(fd);
    return got > 0 ? static_cast<std::size_t>(got) : 0;
}

std::size_t walkAndRead(const std::string& root) {
    std::size_t bytes = 0;
    eachMessageFile(root, [&](const std::string& path) { bytes += readOnce(path); });
    return bytes;
}

bool copy(const std::string& from, const std::string& to) {
    ::unlink(to.c_str());
    const int in = ::open(from.c_str(), O_RDONLY | O_CLOEXEC);
    const int out = ::open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    ssize_t got = 0;
    do got = ::copy_file_range(in, nullptr, out, nullptr, std::size_t{1} << 30, 0);
    while (got > 0);
    if (in >= 0) ::close(in);
    if (out >= 0) ::close(out);
    return got == 0;
}

std::size_t step(const std::string& database, const std::string& query, std::int64_t parameter) {
    sqlite3* open = nullptr;
    sqlite3_stmt* statement = nullptr;
    std::size_t rows = 0;
    if (sqlite3_open_v2(database.c_str(), &open, SQLITE_OPEN_READONLY, nullptr) == SQLITE_OK &&
        sqlite3_prepare_v2(open, query.c_str(), -1, &statement, nullptr) == SQLITE_OK) {
        sqlite3_bind_int64(statement, 1, parameter);
        while (sqlite3_step(statement) == SQLITE_ROW) ++rows;
        sqlite3_finalize(statement);
    }
    sqlite3_close(open);
    return rows;
}

}  // namespace brindlet::bench::floors
