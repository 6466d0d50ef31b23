#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "Value.h"

namespace brindlet::osascript {

/// The files that a script has open, by the numbers it knows them by. What is still open at the end
/// closes with this. Every write reaches the file at once, so that others can read it meanwhile.
class OpenFiles {
  public:
    OpenFiles() = default;
    ~OpenFiles();
    OpenFiles(const OpenFiles&) = delete;
    OpenFiles& operator=(const OpenFiles&) = delete;

    /// For writing, a file that is not there is made; the mark is at its start. One file can be
    /// open for writing once.
    Answer<std::int64_t> open(const std::string& path, bool forWriting);
    /// From the mark to the end, ill-formed text repaired; at the end already it is an error.
    Answer<std::string> read(std::int64_t number);
    std::optional<ScriptError> write(std::int64_t number, const std::string& text);
    /// Cuts or lengthens the file; a mark beyond its end is put there.
    std::optional<ScriptError> setEnd(std::int64_t number, std::int64_t size);
    std::optional<ScriptError> close(std::int64_t number);

  private:
    struct File {
        int descriptor = -1;
        bool forWriting = false;
        std::string path;
    };

    Answer<File*> find(std::int64_t number);

    std::map<std::int64_t, File> files_;
    std::int64_t next_ = 1;
};

}  // namespace brindlet::osascript
