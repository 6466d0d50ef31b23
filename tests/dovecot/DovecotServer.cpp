#include "dovecot/DovecotServer.h"

#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <signal.h>
#include <spawn.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Files.h"
#include "sample/Loopback.h"

namespace brindlet {
namespace {

using Strings = std::vector<std::string>;

bool isRoot() {
    return ::geteuid() == 0;
}

const passwd* serversUser() {
    return isRoot() ? ::getpwnam("nobody") : ::getpwuid(::geteuid());
}

std::string nameOfGroup(gid_t group) {
    const auto* const found = ::getgrgid(group);
    return found ? found->gr_name : "";
}

std::string librariesIn(const std::string& unpacked) {
    const auto folder = unpacked + "/usr/lib/";
    return folder + "dovecot:" + folder + "dovecot/modules/old-stats:" + folder +
           BRINDLET_ARCHITECTURE;
}

void fill(std::string& text, std::string_view name, std::string_view value) {
    const auto mark = "@" + std::string(name) + "@";
    for (auto at = text.find(mark); at != std::string::npos; at = text.find(mark, at))
        text.replace(at, mark.size(), value);
}

/// With its listening socket as the next file after the standard ones, in the way of systemd
/// (sd_listen_fds): who connects before the server is up only waits a moment longer.
pid_t run(const Strings& command, const Strings& environment, int listener,
          const std::string& log) {
    const auto pointers = [](const Strings& texts) {
        std::vector<char*> all;
        for (const auto& text : texts) all.push_back(const_cast<char*>(text.c_str()));
        all.push_back(nullptr);
        return all;
    };
    posix_spawn_file_actions_t files;
    ::posix_spawn_file_actions_init(&files);
    ::posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, log.c_str(),
                                       O_WRONLY | O_CREAT | O_APPEND, 0644);
    ::posix_spawn_file_actions_adddup2(&files, STDOUT_FILENO, STDERR_FILENO);
    ::posix_spawn_file_actions_adddup2(&files, listener, STDERR_FILENO + 1);
    pid_t process = -1;
    if (::posix_spawnp(&process, command.front().c_str(), &files, nullptr, pointers(command).data(),
                       pointers(environment).data()) != 0)
        process = -1;
    ::posix_spawn_file_actions_destroy(&files);
    return process;
}

}  // namespace

std::string DovecotServer::missing() {
    if (!files::exists(BRINDLET_SERVERS "/dovecot/packages"))
        return "There is no Dovecot here: tools/unpack_servers fetches it.";
    if (serversUser() == nullptr) return "There is no user here whom Dovecot could run as.";
    return {};
}

DovecotServer::DovecotServer()
    : unpacked_(BRINDLET_SERVERS "/dovecot"),
      modules_(BRINDLET_UNPACKED_MODULES),
      listener_(sample::listenOnLoopback(0)),
      port_(sample::portOf(listener_.get())) {
    if (isRoot()) copyServer();
    for (const char* folder : {"/run", "/state", "/mail/cur", "/mail/new", "/mail/tmp"})
        files::createDirectories(directories_.home() + folder);
}

DovecotServer::~DovecotServer() {
    if (process_ < 0) return;
    ::kill(process_, SIGTERM);
    // The others become this process's once the first is gone. Where one stays, this never ends.
    while (::waitpid(-1, nullptr, 0) > 0) {
    }
}

std::string DovecotServer::folderOf(const std::string& mailbox) const {
    const auto mail = directories_.home() + "/mail";
    return mailbox == inbox ? mail : mail + "/" + mailbox;
}

void DovecotServer::deliver(const std::string& mailbox, const std::string& message) {
    const auto name = std::to_string(1'700'000'000 + ++delivered_) + ".M1P1.mail.example:2,";
    for (const char* part : {"/cur", "/new", "/tmp"})
        files::createDirectories(folderOf(mailbox) + part);
    EXPECT_TRUE(files::write(folderOf(mailbox) + "/cur/" + name, message));
}

/// Where the server was unpacked, nobody may not even look.
void DovecotServer::copyServer() {
    namespace fs = std::filesystem;
    const auto copy = directories_.root() + "/server";
    for (const char* part : {"/usr/bin", "/usr/sbin", "/usr/lib"}) {
        files::createDirectories(copy + part);
        fs::copy(unpacked_ + part, copy + part,
                 fs::copy_options::recursive | fs::copy_options::copy_symlinks);
    }
    fs::copy(modules_, copy + "/modules.so");
    unpacked_ = copy;
    modules_ = copy + "/modules.so";
}

void DovecotServer::giveToNobody() const {
    namespace fs = std::filesystem;
    const auto give = [&user = *serversUser()](const std::string& path) {
        EXPECT_EQ(::lchown(path.c_str(), user.pw_uid, user.pw_gid), 0) << path;
    };
    give(directories_.root());
    give(directories_.home());
    for (const auto& entry : fs::recursive_directory_iterator(directories_.home()))
        give(entry.path());
}

std::string DovecotServer::settings() const {
    auto text = files::read(BRINDLET_DOVECOT_SETTINGS).value_or("");
    const auto& user = *serversUser();
    fill(text, "home", directories_.home());
    fill(text, "unpacked", unpacked_);
    fill(text, "modules", modules_);
    fill(text, "libraries", librariesIn(unpacked_));
    fill(text, "port", std::to_string(port_));
    fill(text, "password", password);
    fill(text, "user", user.pw_name);
    fill(text, "group", nameOfGroup(user.pw_gid));
    fill(text, "uid", std::to_string(user.pw_uid));
    fill(text, "gid", std::to_string(user.pw_gid));
    return text;
}

void DovecotServer::start(const std::string& host) {
    const auto home = directories_.home();
    const auto file = home + "/dovecot.conf";
    const auto identity = authority_.issue({.hosts = {host}});
    EXPECT_TRUE(files::write(home + "/certificate.pem", identity.certificate));
    EXPECT_TRUE(files::write(home + "/key.pem", identity.key));
    EXPECT_TRUE(files::write(file, settings()));
    if (isRoot()) giveToNobody();

    // The shell knows its own number, which the server goes on to have.
    Strings command{"sh",          "-c",  "LISTEN_PID=$$ exec \"$@\"", "sh", "setpriv",
                    "--pdeathsig", "TERM"};
    if (isRoot()) {
        const auto& user = *serversUser();
        command.insert(command.end(), {"--reuid", std::to_string(user.pw_uid), "--regid",
                                       std::to_string(user.pw_gid), "--clear-groups"});
    }
    // By itself the server would look for its reader of settings in /usr/bin.
    command.insert(command.end(), {unpacked_ + "/usr/bin/doveconf", "-c", file, "-m", "master",
                                   "-p", "-e", unpacked_ + "/usr/sbin/dovecot", "-F", "-c", file});
    ::prctl(PR_SET_CHILD_SUBREAPER, 1);
    process_ =
        run(command,
            {"PATH=/usr/bin:/bin", "LISTEN_FDS=1", "LD_LIBRARY_PATH=" + librariesIn(unpacked_)},
            listener_.get(), directories_.root() + "/log");
    EXPECT_GT(process_, 0);
    // Should the server not come up, whoever waits for it learns of it.
    listener_.close();
}

std::string DovecotServer::log() const {
    return files::read(directories_.root() + "/log").value_or("");
}

}  // namespace brindlet
