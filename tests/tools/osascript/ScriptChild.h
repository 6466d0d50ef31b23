#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace brindlet::osascript {

/// What a script host's process has left.
struct ScriptOutcome {
    /// The exit status, or -1 when a signal ended it.
    int status = -1;
    int signal = 0;
    std::string output;
    std::string errors;
};

/// One run of the stand-in as a process of its own. Its streams are files in a folder of the
/// test's.
class ScriptChild {
  public:
    ScriptChild(const std::string& folder, const std::string& home,
                const std::vector<std::string>& arguments, const std::string& standardInput);
    /// Kills it if it still runs.
    ~ScriptChild();
    ScriptChild(const ScriptChild&) = delete;
    ScriptChild& operator=(const ScriptChild&) = delete;

    void send(int signal) const;
    bool hasEnded() const;
    ScriptOutcome wait();

  private:
    std::string folder_;
    pid_t process_ = -1;
};

/// A gate's FIFO held open for writing. Making one waits until the host stands at the gate, or has
/// ended without ever coming there, which fails the test; its end lets the host on.
class Opening {
  public:
    Opening(const std::string& fifo, const ScriptChild& child);
    ~Opening();
    Opening(const Opening&) = delete;
    Opening& operator=(const Opening&) = delete;

  private:
    int descriptor_;
};

/// The text of one of the program's scripts.
std::string moveScript(const std::string& name);
std::string listingScript(const std::string& name);

}  // namespace brindlet::osascript
