#include "OpenFiles.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "base/Utf8.h"

namespace brindlet::osascript {
namespace {

ScriptError writingFailed(const std::string& path) {
    return {"File " + path + " couldn’t be written.", errors::cannotOpen};
}

}  // namespace

OpenFiles::~OpenFiles() {
    for (const auto& [number, file] : files_) ::close(file.descriptor);
}

Answer<std::int64_t> OpenFiles::open(const std::string& path, bool forWriting) {
    const bool taken =
        forWriting && std::any_of(files_.begin(), files_.end(), [&](const auto& open) {
            return open.second.forWriting && open.second.path == path;
        });
    if (taken) return ScriptError{"File " + path + " is already open.", errors::openForWriting};
    const int descriptor =
        ::open(path.c_str(), O_CLOEXEC | (forWriting ? O_RDWR | O_CREAT : O_RDONLY), 0666);
    if (descriptor < 0 && errno == ENOENT)
        return ScriptError{"File " + path + " wasn’t found.", errors::fileNotFound};
    if (descriptor < 0)
        return ScriptError{"File " + path + " couldn’t be opened.", errors::cannotOpen};
    files_[next_] = {descriptor, forWriting, path};
    return next_++;
}

Answer<OpenFiles::File*> OpenFiles::find(std::int64_t number) {
    const auto found = files_.find(number);
    if (found == files_.end()) return ScriptError{"File not open.", errors::fileNotOpen};
    return &found->second;
}

Answer<std::string> OpenFiles::read(std::int64_t number) {
    auto found = find(number);
    if (auto* const error = std::get_if<ScriptError>(&found)) return std::move(*error);
    const int descriptor = std::get<File*>(found)->descriptor;
    std::string bytes;
    char block[64 * 1024];
    for (ssize_t got = 0; (got = ::read(descriptor, block, sizeof block)) > 0;)
        bytes.append(block, static_cast<std::size_t>(got));
    if (bytes.empty()) return ScriptError{"End of file error.", errors::endOfFile};
    return repairedUtf8(bytes);
}

std::optional<ScriptError> OpenFiles::write(std::int64_t number, const std::string& text) {
    auto found = find(number);
    if (auto* const error = std::get_if<ScriptError>(&found)) return std::move(*error);
    const File& file = *std::get<File*>(found);
    const auto written = ::write(file.descriptor, text.data(), text.size());
    if (written != static_cast<ssize_t>(text.size())) return writingFailed(file.path);
    return std::nullopt;
}

std::optional<ScriptError> OpenFiles::setEnd(std::int64_t number, std::int64_t size) {
    auto found = find(number);
    if (auto* const error = std::get_if<ScriptError>(&found)) return std::move(*error);
    const File& file = *std::get<File*>(found);
    if (::ftruncate(file.descriptor, size) != 0) return writingFailed(file.path);
    if (::lseek(file.descriptor, 0, SEEK_CUR) > size) ::lseek(file.descriptor, size, SEEK_SET);
    return std::nullopt;
}

std::optional<ScriptError> OpenFiles::close(std::int64_t number) {
    auto found = find(number);
    if (auto* const error = std::get_if<ScriptError>(&found)) return std::move(*error);
    ::close(std::get<File*>(found)->descriptor);
    files_.erase(number);
    return std::nullopt;
}

}  // namespace brindlet::osascript
