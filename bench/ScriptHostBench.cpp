#include <cstdio>
#include <cstdlib>
#include <string>

#include "Rounds.h"
#include "base/Files.h"
#include "doubles/Doubles.h"
#include "sample/HandmadeHome.h"

// The bulk script over a whole mailbox, by the stand-in for the script host. No row id of the list
// holds any more, so that every message is searched by its Message-ID; that must not take a walk
// through the mailbox each time.

namespace brindlet::bench {
namespace {

constexpr int messages = 20'000;
constexpr double mostSeconds = 10;

int main(const std::string& host, const std::string& script) {
    const doubles::TemporaryDirectories directories;
    sample::HandmadeHome home(directories.home());
    const std::size_t account = home.addAccount("Work", "me@x.example");
    const std::int64_t inbox = home.addMailbox(account, "INBOX");
    home.addMailbox(account, "Junk");
    std::string rows;
    for (int i = 0; i < messages; ++i) {
        const std::string id = "message-" + std::to_string(i) + "@mail.example";
        home.addMessage({.mailbox = inbox, .messageId = id});
        rows += (i > 0 ? "\n" : "") + std::to_string(1'000'000 + i) + '\t' + id;
    }
    const std::string folder = directories.temporary();
    if (!home.finish() || !files::write(folder + "/ids", rows)) return EXIT_FAILURE;
    ::setenv(sample::sampleHomeVariable, home.home().c_str(), 1);

    const std::string command = host + " - me@x.example Junk INBOX " + folder + "/ids " + folder +
                                "/progress " + folder + "/done 0 <" + script + " >" + folder +
                                "/result";
    int status = 0;
    const double seconds = wallMilliseconds([&] { status = std::system(command.c_str()); }) / 1'000;
    const std::string result = files::read(folder + "/result").value_or("");
    const std::string all = std::to_string(messages);
    const bool whole = status == 0 && result == all + '|' + all + "|false|false\n";
    const bool quick = seconds <= mostSeconds * strictness().slack;
    std::printf("bulk move by stale row ids, %s messages: %.2f s (at most %.0f)%s%s\n", all.c_str(),
                seconds, mostSeconds, whole ? "" : "  NOT ALL MOVED", quick ? "" : "  TOO SLOW");
    return whole && quick ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace
}  // namespace brindlet::bench

int main(int count, char** values) {
    if (count == 3) return brindlet::bench::main(values[1], values[2]);
    std::fputs("script_host_bench HOST SCRIPT\n", stderr);
    return EXIT_FAILURE;
}
