#pragma once

#include <string>

namespace brindlet {

/// The roots of the file system that the program reads and writes below. Paths without a trailing
/// slash. Any thread.
class Directories {
  public:
    virtual ~Directories() = default;
    virtual std::string home() const = 0;
    /// Private to the user (mode 0700); files in it are overwritten by their next use.
    virtual std::string temporary() const = 0;
    /// Where the stores' files lie: the environment variable BRINDLET_STORE, whatever it says, else
    /// the platform's place. Created with its parents at every asking; a failure to is ignored.
    virtual std::string store() const = 0;
};

}  // namespace brindlet
