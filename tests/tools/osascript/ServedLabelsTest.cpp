#include <gtest/gtest.h>

#include <algorithm>

#include "ScriptHome.h"
#include "sample/GmailMail.h"

// The mail program's scripts and Gmail's server over one home at once.

namespace brindlet::osascript {
namespace {

using Strings = std::vector<std::string>;

struct ServedLabels : ::testing::Test {
    void SetUp() override {
        home.finish();
        server = sample::GmailMail::open(home.home.home());
        ASSERT_TRUE(server);
        account = server->account("me@gmail.example");
    }
    void TearDown() override { EXPECT_EQ(home.disagreement(), ""); }

    /// The messages that the server shows in a mailbox, by their rows.
    std::vector<std::int64_t> served(const std::string& name) const {
        std::vector<std::int64_t> rows;
        if (const auto mailbox = account->open(name))
            for (const auto& message : mailbox->messages) rows.push_back(message.message);
        std::sort(rows.begin(), rows.end());
        return rows;
    }

    ScriptHome home;
    std::unique_ptr<sample::GmailMail> server;
    std::unique_ptr<sample::ImapAccount> account;
};

TEST_F(ServedLabels, WhatTheServerHasFiledAScriptFindsAndPutsBack) {
    for (const std::size_t i : {0u, 1u}) {
        EXPECT_TRUE(account->addLabel(home.gmailRows[i], "Brindlet Junk"));
        EXPECT_TRUE(account->removeLabel(home.gmailRows[i], "\\Inbox"));
    }
    EXPECT_EQ(home.idsIn(ScriptHome::gmail, "INBOX"), (Strings{"g5@h", "g4@h", "g3@h"}));
    EXPECT_EQ(home.idsIn(ScriptHome::gmail, "Brindlet Junk"), (Strings{"g2@h", "g1@h"}));
    const auto outcome = home.bulk({{home.gmailRows[0], "g1@h"}, {home.gmailRows[1], "g2@h"}},
                                   {.address = "me@gmail.example",
                                    .destination = "INBOX",
                                    .source = "Brindlet Junk",
                                    .labelOnly = "1"});
    EXPECT_EQ(outcome.done, (Strings{"g1@h", "g2@h"}));
    EXPECT_EQ(served("INBOX"), home.gmailRows);
}

TEST_F(ServedLabels, WhatAPersonMovesByMenuTheServerShows) {
    EXPECT_EQ(served("INBOX").size(), 5u);
    EXPECT_EQ(
        home.menu({"g1@h", "g2@h"},
                  {.address = "me@gmail.example", .source = "INBOX", .destination = "Receipts"})
            .status,
        0);
    EXPECT_EQ(served("INBOX").size(), 3u);
    EXPECT_EQ(served("Receipts"), (std::vector{home.gmailRows[0], home.gmailRows[1]}));
    EXPECT_EQ(account->labels(home.gmailRows[0]), Strings{"Receipts"});
}

TEST_F(ServedLabels, BothAtOnceLoseNothing) {
    ScriptHome::Rows rows;
    for (std::size_t i = 0; i < home.gmailRows.size(); ++i)
        rows.emplace_back(home.gmailRows[i], 'g' + std::to_string(i + 1) + "@h");
    ScriptChild child(
        home.directories.temporary(), home.home.home(),
        home.bulkArguments(
            rows, {.address = "me@gmail.example", .destination = "Receipts", .labelOnly = "1"}),
        moveScript("bulk-move.applescript"));
    // Until the script has ended, and once more.
    for (bool last = false; !last;) {
        last = child.hasEnded();
        for (const std::int64_t row : home.gmailRows) {
            EXPECT_TRUE(account->addLabel(row, "Made Meanwhile"));
            EXPECT_TRUE(account->removeLabel(row, "Made Meanwhile"));
            EXPECT_TRUE(account->addLabel(row, "Made Meanwhile"));
        }
    }
    EXPECT_EQ(child.wait().output, "5|5|false|false\n");
    EXPECT_EQ(served("Receipts"), home.gmailRows);
    EXPECT_EQ(served("Made Meanwhile"), home.gmailRows);
    EXPECT_EQ(served("INBOX"), home.gmailRows);
    EXPECT_EQ(served("[Gmail]/All Mail"), home.gmailRows);
}

}  // namespace
}  // namespace brindlet::osascript
