#include <gtest/gtest.h>

#include "mail/MailHome.h"
#include "tools/RunTool.h"

namespace brindlet {
namespace {

using testing::account;
using testing::MailHome;

TEST(ListMailboxes, PrintsAccountsWithTheirFolders) {
    MailHome home;
    home.makeIndex("INSERT INTO mailboxes (ROWID, url) VALUES (1, 'imap://" + std::string(account) +
                   "/Bills'), (2, 'imap://" + std::string(account) +
                   "/INBOX');"
                   "INSERT INTO messages (ROWID, mailbox) VALUES (1, 1), (2, 1);");
    const Outcome outcome = run("list_mailboxes --home " + home.world.directories.home());
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.printed,
              "[{\"id\":\"" + std::string(account) +
                  "\",\"folders\":["
                  "{\"id\":2,\"name\":\"INBOX\",\"count\":0,\"role\":\"inbox\"},"
                  "{\"id\":1,\"name\":\"Bills\",\"count\":2,\"role\":\"custom\"}]}]\n");
}

TEST(ListMailboxes, SaysWhenThereIsNoIndex) {
    MailHome home;
    const std::string command = "list_mailboxes --home " + home.world.directories.home();
    EXPECT_EQ(run(command).status, 1);
    EXPECT_EQ(run(command, errorsOnly).printed, "There is no mail index that can be read in " +
                                                    home.world.directories.home() + ".\n");
}

TEST(ParseEmlx, PrintsALineForEachFile) {
    MailHome home;
    const std::string good = home.putMessage("1.emlx", "9\nMessage-ID: <a@b>\n\nHi <b>\"you\"</b>");
    const std::string bare = home.putMessage("2.emlx", "9\nA: b\n\nHi");
    const Outcome outcome = run("parse_emlx " + good + ' ' + bare + " missing.emlx");
    const auto escaped = [](std::string path) {
        for (auto at = path.find('/'); at != std::string::npos; at = path.find('/', at + 2))
            path.insert(at, 1, '\\');
        return path;
    };
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.printed,
              "{\"path\":\"" + escaped(good) +
                  "\",\"messageID\":\"a@b\",\"body\":\"Hi \\\"you\\\"\"}\n"
                  "{\"path\":\"" +
                  escaped(bare) +
                  "\",\"messageID\":null,\"body\":\"Hi\"}\n"
                  "{\"path\":\"missing.emlx\",\"messageID\":null,\"body\":\"\"}\n");
}

TEST(MailTools, HelpIsPrintedAndWrongUseIsTold) {
    for (const std::string tool : {"list_mailboxes", "parse_emlx"}) {
        const Outcome help = run(tool + " --help");
        EXPECT_EQ(help.status, 0);
        EXPECT_TRUE(help.printed.starts_with(tool)) << help.printed;
        for (const char* wrong : {"", " --what", " --home"}) {
            EXPECT_EQ(run(tool + wrong).status, 2) << tool << wrong;
            EXPECT_TRUE(run(tool + wrong, errorsOnly).printed.ends_with(".\n")) << tool << wrong;
        }
    }
    EXPECT_EQ(run("list_mailboxes --home . more").status, 2);
}

}  // namespace
}  // namespace brindlet
