#include "platform/linux/LinuxDiagnostics.h"

#include <sys/prctl.h>
#include <syslog.h>
#include <unistd.h>

#include <array>

#include "base/Files.h"
#include "base/Task.h"
#include "platform/Clock.h"
#include "platform/ProcessRunner.h"

namespace brindlet {
namespace {

constexpr int samples = 3;
constexpr double secondsBetween = 1;

/// Where the system lets a process be traced by its ancestors alone, our own children may for as
/// long as this lives: naming ourselves allows what descends from us, and nobody else. Kernels
/// without that rule refuse the call, which then is not needed.
class ChildrenMayTrace {
  public:
    ChildrenMayTrace() { allow(static_cast<unsigned long>(::getpid())); }
    ~ChildrenMayTrace() { allow(0); }
    ChildrenMayTrace(const ChildrenMayTrace&) = delete;
    ChildrenMayTrace& operator=(const ChildrenMayTrace&) = delete;

  private:
    static void allow(unsigned long process) { ::prctl(PR_SET_PTRACER, process, 0, 0, 0); }
};

}  // namespace

void LinuxDiagnostics::sample(const std::string& path, const CancelToken& token) {
    const ChildrenMayTrace allowance;
    std::string text;
    for (int number = 1; number <= samples; ++number) {
        if (number > 1 && !clock_.sleep(secondsBetween, token)) break;
        const auto stacks = stacksNow();
        if (stacks.empty()) continue;
        text += "Sample " + std::to_string(number) + " of " + std::to_string(samples) + '\n';
        text += stacks + '\n';
        // At once: whoever ends a program that does not answer will not wait for the last sample.
        files::write(path, text);
    }
    std::array<char, 1> first;
    if (files::readPrefix(path, first) == 0U) files::remove(path);
}

// The program's path goes through env, which switches off what would ask a server on the network
// for symbols while we stand still.
std::string LinuxDiagnostics::stacksNow() {
    const auto program = processes_.make(
        {"/usr/bin/env", "DEBUGINFOD_URLS=", program_, "-p", std::to_string(::getpid())});
    if (!program->launch()) return {};
    program->writeInput({});
    // It must never block on its complaints: a thread of ours could then stand still for good.
    const auto complaints = Task::start(TaskPriority::userInitiated,
                                        [program](const CancelToken&) { program->readError(); });
    auto stacks = program->readOutput();
    program->wait();
    complaints.wait();
    // Refused, it may still print its headings.
    return stacks.find("\n#0 ") == std::string::npos ? std::string() : stacks;
}

void LinuxDiagnostics::log(const std::string& line) {
    ::syslog(LOG_USER | LOG_WARNING, "%s", line.c_str());
}

}  // namespace brindlet
