#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "base/Files.h"

#if defined(__linux__)
#include <sys/ioctl.h>
#include <sys/sendfile.h>
#include <sys/syscall.h>
#elif defined(__APPLE__)
#include <copyfile.h>
#endif

namespace brindlet::files {
namespace {

/// A file descriptor that closes itself.
class Descriptor {
  public:
    explicit Descriptor(int fd) : fd_(fd) {}
    ~Descriptor() {
        if (fd_ >= 0) ::close(fd_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int get() const { return fd_; }
    explicit operator bool() const { return fd_ >= 0; }
    bool close() {
        const int fd = fd_;
        fd_ = -1;
        return ::close(fd) == 0;
    }

  private:
    int fd_;
};

bool writeAll(int fd, const char* data, std::size_t size) {
    while (size > 0) {
        const auto written = ::write(fd, data, size);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        data += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

ssize_t readSome(int fd, char* data, std::size_t size) {
    ssize_t got = 0;
    do got = ::read(fd, data, size);
    while (got < 0 && errno == EINTR);
    return got;
}

bool copyThroughMemory(int in, int out) {
    std::string block(64 * 1024, '\0');
    while (true) {
        const auto got = readSome(in, block.data(), block.size());
        if (got < 0) return false;
        if (got == 0) return true;
        if (!writeAll(out, block.data(), static_cast<std::size_t>(got))) return false;
    }
}

#if defined(__linux__)
/// Lets the kernel copy. False with nothing copied when it will not for these two files, which is
/// not yet a failure; `failed` is set when it broke off midway.
bool copyInKernel(int in, int out, bool& failed) {
    constexpr std::size_t chunk = 1u << 30;
    bool started = false;
    while (true) {
        ssize_t got = ::copy_file_range(in, nullptr, out, nullptr, chunk, 0);
        if (got < 0 && !started) got = ::sendfile(out, in, nullptr, chunk);
        if (got < 0) {
            failed = started;
            return false;
        }
        // Nothing at the first call may mean a file system that does not know its size.
        if (got == 0) return started;
        started = true;
    }
}
#endif

}  // namespace

bool exists(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0;
}

bool isDirectory(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool remove(const std::string& path) {
    return ::unlink(path.c_str()) == 0;
}

bool createDirectories(const std::string& path) {
    for (std::size_t at = path.find('/', 1); at != std::string::npos; at = path.find('/', at + 1))
        ::mkdir(path.substr(0, at).c_str(), 0777);
    ::mkdir(path.c_str(), 0777);
    return isDirectory(path);
}

std::optional<std::vector<std::string>> list(const std::string& directory) {
    DIR* const open = ::opendir(directory.c_str());
    if (!open) return std::nullopt;
    std::vector<std::string> names;
    while (const dirent* entry = ::readdir(open)) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") names.emplace_back(name);
    }
    ::closedir(open);
    return names;
}

std::optional<std::string> read(const std::string& path) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file) return std::nullopt;
    struct stat status {};
    if (::fstat(file.get(), &status) != 0) return std::nullopt;
    // Room to meet the end of the file without growing, and some left over for a parser's padding.
    constexpr std::size_t slack = 4096;
    std::string bytes(static_cast<std::size_t>(status.st_size > 0 ? status.st_size : 0) + slack,
                      '\0');
    std::size_t size = 0;
    while (true) {
        if (size == bytes.size()) bytes.resize(size * 2);
        const auto got = readSome(file.get(), bytes.data() + size, bytes.size() - size);
        if (got < 0) return std::nullopt;
        if (got == 0) break;
        size += static_cast<std::size_t>(got);
    }
    bytes.resize(size);
    return bytes;
}

std::optional<std::size_t> readPrefix(const std::string& path, std::span<char> buffer) {
    const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file) return std::nullopt;
    std::size_t size = 0;
    while (size < buffer.size()) {
        const auto got = readSome(file.get(), buffer.data() + size, buffer.size() - size);
        if (got <= 0) break;
        size += static_cast<std::size_t>(got);
    }
    return size;
}

bool write(const std::string& path, std::string_view bytes) {
    Descriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
    if (!file) return false;
    const bool written = writeAll(file.get(), bytes.data(), bytes.size());
    return file.close() && written;
}

bool replace(const std::string& path, std::string_view bytes) {
    const std::string fresh = path + ".new";
    Descriptor file(::open(fresh.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600));
    if (!file) return false;
    const bool written = writeAll(file.get(), bytes.data(), bytes.size());
    if (file.close() && written && ::rename(fresh.c_str(), path.c_str()) == 0) return true;
    ::unlink(fresh.c_str());
    return false;
}

bool copy(const std::string& from, const std::string& to) {
    const Descriptor in(::open(from.c_str(), O_RDONLY | O_CLOEXEC));
    if (!in) return false;
    struct stat status {};
    if (::fstat(in.get(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
    Descriptor out(::open(to.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!out) return false;
#if defined(__linux__)
    bool failed = false;
    if (copyInKernel(in.get(), out.get(), failed)) return out.close();
    if (failed) return false;
#elif defined(__APPLE__)
    if (::fcopyfile(in.get(), out.get(), nullptr, COPYFILE_DATA) == 0) return out.close();
    if (::lseek(in.get(), 0, SEEK_SET) != 0 || ::ftruncate(out.get(), 0) != 0) return false;
#endif
    return copyThroughMemory(in.get(), out.get()) && out.close();
}

bool moveWithoutReplacing(const std::string& from, const std::string& to) {
#if defined(__linux__)
    constexpr unsigned noReplace = 1;  // RENAME_NOREPLACE; glibc hides it without extensions
    if (::syscall(SYS_renameat2, AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), noReplace) == 0)
        return true;
    if (errno != EINVAL && errno != ENOSYS) return false;
#elif defined(__APPLE__)
    if (::renamex_np(from.c_str(), to.c_str(), RENAME_EXCL) == 0) return true;
    if (errno != ENOTSUP) return false;
#endif
    // A file system without that flag: a hard link refuses an existing target just as well.
    if (::link(from.c_str(), to.c_str()) != 0) return false;
    if (::unlink(from.c_str()) == 0) return true;
    ::unlink(to.c_str());
    return false;
}

Writer::Writer(const std::string& path)
    : descriptor_(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666)),
      failed_(descriptor_ < 0) {}

Writer::~Writer() {
    finish();
}

void Writer::append(std::string_view bytes) {
    constexpr std::size_t piece = 256 * 1024;
    if (failed_) return;
    if (pending_.empty() && bytes.size() >= piece / 2) {
        // A caller with a buffer of its own need not have it copied.
        failed_ = !writeAll(descriptor_, bytes.data(), bytes.size());
        return;
    }
    pending_ += bytes;
    if (pending_.size() < piece) return;
    failed_ = !writeAll(descriptor_, pending_.data(), pending_.size());
    pending_.clear();
}

bool Writer::finish() {
    if (descriptor_ < 0) return !failed_;
    if (!failed_ && !writeAll(descriptor_, pending_.data(), pending_.size())) failed_ = true;
    if (::close(descriptor_) != 0) failed_ = true;
    descriptor_ = -1;
    return !failed_;
}

}  // namespace brindlet::files
