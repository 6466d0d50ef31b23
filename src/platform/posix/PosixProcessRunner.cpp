#include "platform/posix/PosixProcessRunner.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "base/Task.h"
#include "base/ThreadSafety.h"
#include "platform/posix/Pipe.h"

namespace brindlet {
namespace {

/// What a child starts with besides its arguments.
class SpawnSettings {
  public:
    SpawnSettings(const Descriptor& input, const Descriptor& output, const Descriptor& error) {
        ::posix_spawn_file_actions_init(&actions);
        ::posix_spawn_file_actions_adddup2(&actions, input.get(), STDIN_FILENO);
        ::posix_spawn_file_actions_adddup2(&actions, output.get(), STDOUT_FILENO);
        ::posix_spawn_file_actions_adddup2(&actions, error.get(), STDERR_FILENO);

        ::posix_spawnattr_init(&attributes);
        sigset_t none, standard;
        ::sigemptyset(&none);
        ::sigemptyset(&standard);
        for (const int signal : {SIGPIPE, SIGTERM}) ::sigaddset(&standard, signal);
        ::posix_spawnattr_setsigmask(&attributes, &none);
        ::posix_spawnattr_setsigdefault(&attributes, &standard);
        short flags = POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF;
#if defined(POSIX_SPAWN_CLOEXEC_DEFAULT)
        // Where a pipe is not born closed to children, one that starts just then would get it.
        flags = static_cast<short>(flags | POSIX_SPAWN_CLOEXEC_DEFAULT);
#endif
        ::posix_spawnattr_setflags(&attributes, flags);
    }
    ~SpawnSettings() {
        ::posix_spawn_file_actions_destroy(&actions);
        ::posix_spawnattr_destroy(&attributes);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    posix_spawn_file_actions_t actions{};
    posix_spawnattr_t attributes{};
};

/// Keeps a write into a pipe that nobody reads any more from ending this program, and leaves the
/// program's own way with that signal as it is.
class WithoutPipeSignal {
  public:
    WithoutPipeSignal() {
        ::sigemptyset(&pipeSignal_);
        ::sigaddset(&pipeSignal_, SIGPIPE);
        wasPending_ = pending();
        ::pthread_sigmask(SIG_BLOCK, &pipeSignal_, &before_);
    }
    ~WithoutPipeSignal() {
        int ignored = 0;
        if (!wasPending_ && pending()) ::sigwait(&pipeSignal_, &ignored);
        ::pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    }
    WithoutPipeSignal(const WithoutPipeSignal&) = delete;
    WithoutPipeSignal& operator=(const WithoutPipeSignal&) = delete;

  private:
    static bool pending() {
        sigset_t signals;
        ::sigemptyset(&signals);
        ::sigpending(&signals);
        return ::sigismember(&signals, SIGPIPE) == 1;
    }
    sigset_t pipeSignal_{};
    sigset_t before_{};
    bool wasPending_ = false;
};

class PosixProcess : public ChildProcess {
  public:
    explicit PosixProcess(std::vector<std::string> arguments) : arguments_(std::move(arguments)) {}
    ~PosixProcess() override;

    bool launch() override;
    void writeInput(std::string_view bytes) override;
    std::string readOutput() override { return readToEnd(output_); }
    std::string readError() override { return readToEnd(error_); }
    bool running() override;
    int wait() override;
    void terminate() override;

  private:
    std::string readToEnd(const Descriptor& stream) const;
    void reapIfEnded() BRINDLET_REQUIRES(mutex_);

    std::vector<std::string> arguments_;
    Descriptor input_, output_, error_;
    /// Nothing is ever written to this pipe: its end tells readers that the program has ended.
    Descriptor ended_;
    Mutex mutex_;
    Descriptor untilEnd_ BRINDLET_GUARDED_BY(mutex_);
    /// 0 before the launch, and again once the child has been reaped: from then on the number may
    /// belong to any other program.
    pid_t pid_ BRINDLET_GUARDED_BY(mutex_) = 0;
    int status_ BRINDLET_GUARDED_BY(mutex_) = -1;
};

PosixProcess::~PosixProcess() {
    Lock lock(mutex_);
    reapIfEnded();
    if (pid_ == 0) return;
    runDetached(TaskPriority::utility, [child = pid_] {
        while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
        }
    });
}

bool PosixProcess::launch() {
    auto input = Pipe::make(), output = Pipe::make(), error = Pipe::make(), end = Pipe::make();
    if (!input || !output || !error || !end) return false;
#if defined(F_SETNOSIGPIPE)
    ::fcntl(input->writeEnd.get(), F_SETNOSIGPIPE, 1);
#endif
    const SpawnSettings settings(input->readEnd, output->writeEnd, error->writeEnd);
    std::vector<char*> arguments;
    for (auto& argument : arguments_) arguments.push_back(argument.data());
    arguments.push_back(nullptr);

    // Held throughout, so that no termination falls between the start and knowing the number.
    Lock lock(mutex_);
    pid_t child = 0;
    if (::posix_spawn(&child, arguments[0], &settings.actions, &settings.attributes,
                      arguments.data(), environ) != 0)
        return false;
    pid_ = child;
    input_ = std::move(input->writeEnd);
    output_ = std::move(output->readEnd);
    error_ = std::move(error->readEnd);
    ended_ = std::move(end->readEnd);
    untilEnd_ = std::move(end->writeEnd);
    return true;
}

void PosixProcess::writeInput(std::string_view bytes) {
    const WithoutPipeSignal quiet;
    while (!bytes.empty()) {
        const auto written = ::write(input_.get(), bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) break;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    input_.close();
}

std::string PosixProcess::readToEnd(const Descriptor& stream) const {
    std::string bytes;
    std::array<char, 16 * 1024> block;
    while (true) {
        pollfd watched[] = {{stream.get(), POLLIN, 0}, {ended_.get(), POLLIN, 0}};
        if (::poll(watched, 2, -1) < 0) {
            if (errno == EINTR) continue;
            return bytes;
        }
        if (watched[0].revents == 0) return bytes;  // it has ended, and left no more than this
        const auto got = ::read(stream.get(), block.data(), block.size());
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return bytes;
        bytes.append(block.data(), static_cast<std::size_t>(got));
    }
}

void PosixProcess::reapIfEnded() {
    if (pid_ == 0) return;
    int status = 0;
    pid_t reaped = 0;
    do reaped = ::waitpid(pid_, &status, WNOHANG);
    while (reaped < 0 && errno == EINTR);
    if (reaped == 0) return;
    status_ = reaped > 0 && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    pid_ = 0;
    untilEnd_.close();
}

bool PosixProcess::running() {
    Lock lock(mutex_);
    reapIfEnded();
    return pid_ != 0;
}

int PosixProcess::wait() {
    while (true) {
        pid_t child = 0;
        {
            Lock lock(mutex_);
            reapIfEnded();
            if (pid_ == 0) return status_;
            child = pid_;
        }
        // Outside the lock, so that it can be terminated meanwhile; and not reaped by this, so that
        // its number stays its own until the lock is held.
        siginfo_t ended{};
        ::waitid(P_PID, static_cast<id_t>(child), &ended, WEXITED | WNOWAIT);
    }
}

void PosixProcess::terminate() {
    Lock lock(mutex_);
    if (pid_ != 0) ::kill(pid_, SIGTERM);
}

}  // namespace

std::shared_ptr<ChildProcess> PosixProcessRunner::make(std::vector<std::string> arguments) {
    return std::make_shared<PosixProcess>(std::move(arguments));
}

}  // namespace brindlet
