#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Plain file work: blocking, on any thread, paths as UTF-8 text, failures as values. One source
/// per system.
namespace brindlet::files {

bool exists(const std::string& path);
bool isDirectory(const std::string& path);

/// Removes a file; false when there was none or it would not go.
bool remove(const std::string& path);

/// Creates the directory and its parents; true when it stands afterwards.
bool createDirectories(const std::string& path);

/// Names of a directory's entries in the listing's order, "." and ".." left out; none when it
/// cannot be listed.
std::optional<std::vector<std::string>> list(const std::string& directory);

/// The whole file; none when it cannot be read to its end.
std::optional<std::string> read(const std::string& path);

/// Reads up to `limit` bytes of the file into `buffer`, which is reused and resized to what came.
/// False when the file cannot be opened; a read error counts as the end of the file.
bool readPrefix(const std::string& path, std::size_t limit, std::string& buffer);

/// Overwrites the file with the bytes, plainly: no temporary file, no rename, no sync. False when
/// any step failed; what the file holds then is unknown.
bool write(const std::string& path, std::string_view bytes);

/// Copies a regular file to a path that does not exist; the copy is for its owner alone (0600).
/// Shares blocks where the file system can. False on any failure, which may leave a partial copy.
bool copy(const std::string& from, const std::string& to);

/// Moves a file to a path on the same file system; false, with both left as they are, when
/// something stands at `to` already or the move fails.
bool moveWithoutReplacing(const std::string& from, const std::string& to);

/// Streams a file out in pieces of 256 KiB, with the same plain overwrite as `write`.
class Writer {
  public:
    explicit Writer(const std::string& path);
    ~Writer();
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    void append(std::string_view bytes);
    /// Writes what is left and closes; false when any step failed since the start.
    bool finish();

  private:
    int descriptor_;
    bool failed_;
    std::string pending_;
};

}  // namespace brindlet::files
