#include <cstdio>
#include <cstdlib>
#include <string>

#include "sample/HandmadeHome.h"

// Makes a home for the fault suite, in which every message is known:
//
//     make_moving_home DIR plain|gmail MESSAGES
//
// So many messages of offers@shop.example are to leave INBOX: wanted-1@h, wanted-2@h and so on.
// Among them lie half as many of ann@baker.example, kept-1@h and so on, which stay; "plain" has
// mail of the shop's in other folders and in another account too. In "gmail" folders are labels.
// The folder that the messages go to stands already.

namespace brindlet::sample {
namespace {

constexpr const char* shop = "Harbour Shop <offers@shop.example>";
constexpr const char* friendly = "Ann Baker <ann@baker.example>";

struct Inbox {
    /// Where the messages are filed; on Gmail, that is not the inbox.
    std::int64_t filed = 0;
    std::vector<std::int64_t> labels;
};

void fill(HandmadeHome& home, const Inbox& inbox, int wanted) {
    const auto add = [&](const char* sender, const std::string& id) {
        home.addMessage({.mailbox = inbox.filed,
                         .messageId = id + "@h",
                         .sender = sender,
                         .subject = "About " + id,
                         .labels = inbox.labels});
    };
    for (int i = 1; i <= wanted; ++i) {
        add(shop, "wanted-" + std::to_string(i));
        if (i % 2 == 0) add(friendly, "kept-" + std::to_string(i / 2));
    }
}

void addOld(HandmadeHome& home, std::int64_t mailbox, const std::string& name) {
    for (int i = 1; i <= 3; ++i) {
        const std::string id = name + '-' + std::to_string(i) + "@h";
        home.addMessage({.mailbox = mailbox, .messageId = id, .sender = shop, .subject = id});
    }
}

int main(const std::string& path, const std::string& kind, int wanted) {
    HandmadeHome home(path);
    const std::size_t account = home.addAccount("Harbour", "robin@harbour.example");
    Inbox inbox;
    if (kind == "gmail") {
        home.settings.accounts[account].gmail = true;
        inbox.filed = home.addMailbox(account, "[Gmail]/All Mail");
        inbox.labels = {home.addMailbox(account, "INBOX")};
        home.addMailbox(account, "Brindlet Junk");
    } else {
        inbox.filed = home.addMailbox(account, "INBOX");
    }
    fill(home, inbox, wanted);
    if (kind == "plain") {
        addOld(home, home.addMailbox(account, "Brindlet Junk"), "junk");
        addOld(home, home.addMailbox(account, "Projects/Harbour"), "project");
        const std::size_t other = home.addAccount("Fernhill", "robin@fernhill.example");
        addOld(home, home.addMailbox(other, "INBOX"), "other");
        home.addMailbox(other, "Brindlet Junk");
    }
    return home.finish() ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace
}  // namespace brindlet::sample

int main(int count, char** values) {
    if (count == 4) return brindlet::sample::main(values[1], values[2], std::atoi(values[3]));
    std::fputs("make_moving_home DIR plain|gmail MESSAGES\n", stderr);
    return EXIT_FAILURE;
}
