#include "platform/linux/XdgDesktop.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>
#include <utility>

#include "base/Task.h"

namespace brindlet {
namespace {

/// There is no common way to a desktop's settings: each has a program of its own. By the names that
/// desktops register for themselves.
constexpr std::array<std::pair<std::string_view, std::string_view>, 12> settingsPrograms{{
    {"Budgie", "budgie-control-center"},
    {"COSMIC", "cosmic-settings"},
    {"DDE", "dde-control-center"},
    {"Deepin", "dde-control-center"},
    {"GNOME", "gnome-control-center"},
    {"KDE", "systemsettings"},
    {"LXQt", "lxqt-config"},
    {"MATE", "mate-control-center"},
    {"Pantheon", "io.elementary.settings"},
    {"Unity", "unity-control-center"},
    {"X-Cinnamon", "cinnamon-settings"},
    {"XFCE", "xfce4-settings-manager"},
}};

/// `desktops` are names between colons, the most particular first.
std::string_view settingsProgram(std::string_view desktops) {
    while (!desktops.empty()) {
        const auto name = desktops.substr(0, desktops.find(':'));
        for (const auto& [desktop, program] : settingsPrograms)
            if (desktop == name) return program;
        desktops.remove_prefix(std::min(name.size() + 1, desktops.size()));
    }
    return {};
}

/// Starts a program with at most one argument and does not wait for it.
void launch(std::string program, std::string argument) {
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

    char* const arguments[] = {program.data(), argument.empty() ? nullptr : argument.data(),
                               nullptr};
    pid_t child = 0;
    const int error =
        ::posix_spawnp(&child, program.c_str(), &actions, &attributes, arguments, environ);
    ::posix_spawn_file_actions_destroy(&actions);
    ::posix_spawnattr_destroy(&attributes);
    if (error != 0) return;
    // It may stay as long as the browser that it starts, so a thread waits to reap it.
    runDetached(TaskPriority::utility, [child] {
        while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
        }
    });
}

}  // namespace

XdgDesktop::XdgDesktop(std::string opener, const Environment& environment)
    : opener_(std::move(opener)) {
    const char* desktops = environment("XDG_CURRENT_DESKTOP");
    if (desktops != nullptr) settings_ = settingsProgram(desktops);
}

void XdgDesktop::openLink(const std::string& url) {
    if (url.empty() || url.front() == '-') return;  // would be read as an option
    launch(opener_, url);
}

void XdgDesktop::openSettings() {
    if (!settings_.empty()) launch(settings_, {});
}

}  // namespace brindlet
