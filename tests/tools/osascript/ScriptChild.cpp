#include "ScriptChild.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

#include "base/Files.h"
#include "sample/MailSettings.h"

namespace brindlet::osascript {

ScriptChild::ScriptChild(const std::string& folder, const std::string& home,
                         const std::vector<std::string>& arguments,
                         const std::string& standardInput)
    : folder_(folder) {
    files::write(folder_ + "/stdin", standardInput);
    posix_spawn_file_actions_t streams;
    posix_spawn_file_actions_init(&streams);
    const auto open = [&](int descriptor, const std::string& name, int flags) {
        posix_spawn_file_actions_addopen(&streams, descriptor, (folder_ + '/' + name).c_str(),
                                         flags, 0600);
    };
    open(STDIN_FILENO, "stdin", O_RDONLY);
    open(STDOUT_FILENO, "stdout", O_WRONLY | O_CREAT | O_TRUNC);
    open(STDERR_FILENO, "stderr", O_WRONLY | O_CREAT | O_TRUNC);

    std::vector<char*> values{const_cast<char*>(BRINDLET_OSASCRIPT)};
    for (const std::string& argument : arguments)
        values.push_back(const_cast<char*>(argument.c_str()));
    values.push_back(nullptr);
    std::vector<char*> environment;
    for (char** variable = environ; *variable; ++variable) environment.push_back(*variable);
    std::string homeVariable = std::string(sample::sampleHomeVariable) + '=' + home;
    environment.push_back(homeVariable.data());
    environment.push_back(nullptr);
    if (::posix_spawn(&process_, BRINDLET_OSASCRIPT, &streams, nullptr, values.data(),
                      environment.data()) != 0)
        process_ = -1;
    posix_spawn_file_actions_destroy(&streams);
}

ScriptChild::~ScriptChild() {
    if (process_ < 0) return;
    send(SIGKILL);
    ::waitpid(process_, nullptr, 0);
}

void ScriptChild::send(int signal) const {
    if (process_ > 0) ::kill(process_, signal);
}

bool ScriptChild::hasEnded() const {
    siginfo_t ended{};
    return process_ < 0 ||
           ::waitid(P_PID, static_cast<id_t>(process_), &ended, WEXITED | WNOHANG | WNOWAIT) != 0 ||
           ended.si_pid != 0;
}

ScriptOutcome ScriptChild::wait() {
    ScriptOutcome outcome;
    int status = 0;
    if (process_ < 0 || ::waitpid(process_, &status, 0) != process_) return outcome;
    process_ = -1;
    if (WIFEXITED(status)) outcome.status = WEXITSTATUS(status);
    if (WIFSIGNALED(status)) outcome.signal = WTERMSIG(status);
    outcome.output = files::read(folder_ + "/stdout").value_or("");
    outcome.errors = files::read(folder_ + "/stderr").value_or("");
    return outcome;
}

Opening::Opening(const std::string& fifo, const ScriptChild& child) {
    // A plain opening would wait for ever once the host is gone.
    const auto open = [&] { return ::open(fifo.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC); };
    while ((descriptor_ = open()) < 0 && errno == ENXIO && !child.hasEnded()) ::sched_yield();
    EXPECT_GE(descriptor_, 0) << "nobody came to the gate";
}

Opening::~Opening() {
    if (descriptor_ >= 0) ::close(descriptor_);
}

std::string moveScript(const std::string& name) {
    return files::read(BRINDLET_MOVE_SCRIPTS "/" + name).value_or("");
}

std::string listingScript(const std::string& name) {
    return files::read(BRINDLET_LISTING_SCRIPTS "/" + name).value_or("");
}

}  // namespace brindlet::osascript
