#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace brindlet {

/// Another program, with a pipe to each of its three standard streams. One thread leads it through
/// its life in the order of the operations below; beside it, one other may read, and any may
/// terminate. Whoever has launched it also waits for it.
class ChildProcess {
  public:
    virtual ~ChildProcess() = default;

    /// Starts the program, with our environment; once only. False when it cannot be started.
    virtual bool launch() = 0;
    /// Writes all of its standard input and closes it. That the program may not want to read it is
    /// no failure.
    virtual void writeInput(std::string_view bytes) = 0;
    /// The rest of standard output, up to its end. The end has come when nobody can write any more,
    /// or when the program has ended and the pipe is empty: a child of its own may hold the pipe
    /// for longer. "Has ended" is what `running` or `wait` has found.
    virtual std::string readOutput() = 0;
    /// The same of standard error.
    virtual std::string readError() = 0;
    virtual bool running() = 0;
    /// Waits until it has ended. Its exit status, or -1 when a signal ended it.
    virtual int wait() = 0;
    /// Asks it to end (SIGTERM), and returns at once. Nothing before the launch and after the end.
    virtual void terminate() = 0;
};

/// Makes processes of other programs. Any thread.
class ProcessRunner {
  public:
    virtual ~ProcessRunner() = default;
    /// `arguments` begins with the path of the program, which is not looked for along PATH.
    virtual std::shared_ptr<ChildProcess> make(std::vector<std::string> arguments) = 0;
};

}  // namespace brindlet
