#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <string>

#include "Arguments.h"
#include "base/Files.h"
#include "base/Json.h"
#include "sample/GmailServer.h"
#include "sample/Loopback.h"

// The simulated Gmail server of a sample home, for any client that speaks IMAP.

namespace brindlet::tools {
namespace {

constexpr const char* usage =
    "gmail_server --home DIR [--port N] [--authority FILE]\n"
    "\n"
    "Serves the Gmail accounts of a sample home, as make_mail_store makes it, by IMAP over TLS on\n"
    "localhost. Prints the port and where its authority's certificate lies, as one line of JSON,\n"
    "and runs until its standard input ends or it is asked to end (SIGTERM, SIGINT).\n"
    "\n"
    "\"gmail-server.json\" in the home holds the app passwords, and switches for what is to go "
    "wrong;\n"
    "it is read for each connection anew, and written where there is none.\n"
    "\n"
    "  --home DIR        the sample home\n"
    "  --port N          listens there (a port that is free)\n"
    "  --authority FILE  where the certificate goes (\"gmail-server.pem\" in the home)\n"
    "  --help            this text\n";

int complain(const std::string& sentence, int status) {
    std::fprintf(stderr, "%s\n", sentence.c_str());
    return status;
}

/// Waits for somebody to want the end, by a signal or by closing our standard input.
class Ending {
  public:
    Ending() {
        asked_ = &pipe_;
        struct sigaction action {};
        action.sa_handler = [](int) { asked_->wake(); };
        ::sigaction(SIGTERM, &action, nullptr);
        ::sigaction(SIGINT, &action, nullptr);
    }
    ~Ending() {
        ::signal(SIGTERM, SIG_DFL);
        ::signal(SIGINT, SIG_DFL);
        asked_ = nullptr;
    }
    Ending(const Ending&) = delete;
    Ending& operator=(const Ending&) = delete;

    void wait() const {
        std::array<pollfd, 2> waited{{{STDIN_FILENO, POLLIN, 0}, {pipe_.readEnd, POLLIN, 0}}};
        std::array<char, 256> ignored{};
        while (waited[1].revents == 0) {
            if (::poll(waited.data(), waited.size(), -1) < 0 && errno == EINTR) continue;
            if (waited[0].revents != 0 && ::read(STDIN_FILENO, ignored.data(), ignored.size()) <= 0)
                return;
        }
    }

  private:
    sample::WakePipe pipe_;
    /// All that a signal's handler can reach.
    static inline const sample::WakePipe* asked_ = nullptr;
};

int main(int count, char** values) {
    Arguments arguments(count, values, {"--home", "--port", "--authority"});
    if (arguments.help) {
        std::fputs(usage, stdout);
        return 0;
    }
    const auto home = arguments.option("--home");
    const auto port = arguments.number("--port", 0, UINT16_MAX);
    if (arguments.problem.empty() && (!home || !arguments.words.empty()))
        arguments.problem = "Name a sample home with --home; --help tells more.";
    if (!arguments.problem.empty()) return complain(arguments.problem, wrongUse);

    const Ending ending;
    const auto started =
        sample::GmailServer::start({*home, static_cast<std::uint16_t>(port.value_or(0))});
    if (!started.server) return complain(started.problem, 1);
    const std::string authority =
        arguments.option("--authority").value_or(*home + "/gmail-server.pem");
    if (!files::replace(authority, started.server->authority()))
        return complain(authority + " cannot be written.", 1);

    JsonWriter out;
    out.beginObject();
    out.member("port", std::int64_t{started.server->port()});
    out.member("authority", authority);
    out.endObject();
    std::puts(std::move(out).text().c_str());
    std::fflush(stdout);
    ending.wait();
    return 0;
}

}  // namespace
}  // namespace brindlet::tools

int main(int count, char** values) {
    return brindlet::tools::main(count, values);
}
