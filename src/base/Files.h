#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
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

/// Reads from the start of the file until the buffer is full or the file ends, and gives the number
/// of bytes that came. None when the file cannot be opened; a read error counts as the end of the
/// file. Never waits for the other end of a pipe.
std::optional<std::size_t> readPrefix(const std::string& path, std::span<char> buffer);

/// What `walk` meets below a directory.
class TreeVisitor {
  public:
    virtual ~TreeVisitor() = default;
    /// The entries that follow, up to the next call, lie in this directory.
    virtual void directory(const std::string& path) = 0;
    /// The name of an entry of any kind, a directory's included.
    virtual void entry(std::string_view name) = 0;
};

/// Walks all that lies below a directory, hidden entries included, in the order in which the file
/// system lists it. Symbolic links are entries and never followed, but that `root` may be one; a
/// directory that cannot be opened is passed over. False when the root itself cannot.
bool walk(const std::string& root, TreeVisitor& visitor);

/// Overwrites the file with the bytes, plainly: no temporary file, no rename, no sync. False when
/// any step failed; what the file holds then is unknown.
bool write(const std::string& path, std::string_view bytes);

/// Puts the bytes in the file's place as a whole, by way of a new file beside it (".new", for its
/// owner alone): however the program ends, the old or the new file stands, never a part of one.
/// False with the old one left when any step failed. Nothing is synced.
bool replace(const std::string& path, std::string_view bytes);

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
