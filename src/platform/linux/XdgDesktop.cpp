#include "platform/linux/XdgDesktop.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

#include "base/Task.h"

namespace brindlet {

void XdgDesktop::openLink(const std::string& url) {
    if (url.empty() || url.front() == '-') return;  // would be read as an option
    posix_spawn_file_actions_t actions;
    posix_spawnattr_t attributes;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawnattr_init(&attributes);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO})
        ::posix_spawn_file_actions_addopen(&actions, stream, "/dev/null", O_RDWR, 0);
    // A session of its own: what it starts outlives us and is not hit by our terminal's signals.
    sigset_t none;
    ::sigemptyset(&none);
    ::posix_spawnattr_setsigmask(&attributes, &none);
    ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSID);

    std::string program = opener_, argument = url;
    char* const arguments[] = {program.data(), argument.data(), nullptr};
    pid_t child = 0;
    const int error =
        ::posix_spawnp(&child, program.c_str(), &actions, &attributes, arguments, environ);
    ::posix_spawn_file_actions_destroy(&actions);
    ::posix_spawnattr_destroy(&attributes);
    if (error != 0) return;
    // The opener may stay as long as the browser that it starts, so a thread waits to reap it.
    runDetached(TaskPriority::utility, [child] {
        while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
        }
    });
}

}  // namespace brindlet
