#include "sample/GmailMail.h"

#include <gtest/gtest.h>

#include "SmallWorld.h"
#include "base/Files.h"

namespace brindlet::sample {
namespace {

using Strings = std::vector<std::string>;

/// The Gmail account of a small world, as the server has it.
class GmailMailTest : public testing::Test {
  protected:
    void serve() {
        world.finish();
        mail = GmailMail::open(world.home.home());
        ASSERT_TRUE(mail);
        account = mail->account("me@gmail.example");
        ASSERT_TRUE(account);
    }
    /// Rows by UID, and what stands between them.
    std::vector<std::int64_t> rowsIn(const std::string& name) {
        std::vector<std::int64_t> rows;
        const auto mailbox = account->open(name);
        if (!mailbox) return {-1};
        for (const auto& message : mailbox->messages) rows.push_back(message.message);
        return rows;
    }
    std::uint32_t uidOf(const std::string& name, std::int64_t row) {
        const auto mailbox = account->open(name);
        for (const auto& message : mailbox->messages)
            if (message.message == row) return message.uid;
        return 0;
    }

    SmallWorld world;
    std::unique_ptr<GmailMail> mail;
    std::unique_ptr<ImapAccount> account;
};

TEST_F(GmailMailTest, NeedsAMailProgram) {
    const doubles::TemporaryDirectories empty;
    EXPECT_FALSE(GmailMail::open(empty.home()));
}

TEST_F(GmailMailTest, OnlyGmailAccountsAreServed) {
    serve();
    EXPECT_TRUE(mail->account("ME@Gmail.example"));
    EXPECT_FALSE(mail->account("me@x.example"));
    EXPECT_FALSE(mail->account(""));
}

TEST_F(GmailMailTest, MailboxesAreTheAccountsOwn) {
    world.home.addMailbox(1, "[Gmail]");
    serve();
    Strings names;
    for (const auto& name : account->mailboxes())
        names.push_back(name.name + (name.attributes.empty() ? "" : name.attributes.front()));
    EXPECT_EQ(names, (Strings{"[Gmail]/All Mail\\All", "INBOX", "Receipts", "[Gmail]/Spam\\Junk",
                              "[Gmail]\\Noselect"}));
    EXPECT_EQ(rowsIn("[Gmail]/All Mail"), std::vector{world.g});
    EXPECT_EQ(rowsIn("inbox"), std::vector{world.g});
    EXPECT_TRUE(rowsIn("Receipts").empty());
    for (const std::string name : {"[Gmail]", "receipts", "Junk", ""})
        EXPECT_FALSE(account->open(name)) << name;
}

TEST_F(GmailMailTest, HeadersAndSizesAreThoseOfTheMessageFiles) {
    const std::int64_t partial = world.home.addMessage({.mailbox = world.all,
                                                        .messageId = "p@h",
                                                        .sender = "a@x.example",
                                                        .subject = "Hi",
                                                        .body = "Two\nlines",
                                                        .kind = FileKind::partial,
                                                        .read = true});
    serve();
    const std::string header = "From: a@x.example\r\nSubject: Hi\r\nMessage-ID: <p@h>\r\n\r\n";
    EXPECT_EQ(account->header(partial), header);
    EXPECT_EQ(account->size(partial),
              static_cast<std::int64_t>(header.size() + std::string("Two\r\nlines\r\n").size()));
    EXPECT_TRUE(account->marks(partial)->seen);
    EXPECT_FALSE(account->marks(world.g)->seen);
}

TEST_F(GmailMailTest, WhatTheMailProgramHasNotFetchedHasItsIdAllTheSame) {
    const std::int64_t missing =
        world.home.addMessage({.mailbox = world.all, .messageId = "m@h", .withFile = false});
    serve();
    EXPECT_EQ(account->header(missing), "Message-ID: <m@h>\r\n\r\n");
    EXPECT_EQ(account->header(999), "\r\n");
    EXPECT_FALSE(account->marks(999));
}

TEST_F(GmailMailTest, FilingPutsOneLabelOnAndTheInboxOff) {
    serve();
    EXPECT_TRUE(account->addLabel(world.g, "Receipts"));
    EXPECT_EQ(account->labels(world.g), (Strings{"\\Inbox", "Receipts"}));
    EXPECT_TRUE(account->removeLabel(world.g, "\\Inbox"));
    EXPECT_EQ(account->labels(world.g), Strings{"Receipts"});
    EXPECT_TRUE(world.idsIn(world.label).empty());
    EXPECT_EQ(world.idsIn(world.receipts), Strings{"g@h"});
    EXPECT_EQ(world.idsIn(world.all), Strings{"g@h"});
    EXPECT_EQ(world.number("SELECT total_count FROM mailboxes WHERE ROWID = " +
                           std::to_string(world.label)),
              0);
    EXPECT_EQ(world.number("SELECT total_count FROM mailboxes WHERE ROWID = " +
                           std::to_string(world.receipts)),
              1);
}

TEST_F(GmailMailTest, ALabelThatIsNotThereIsMade) {
    serve();
    EXPECT_TRUE(account->addLabel(world.g, "Brindlet Junk"));
    EXPECT_EQ(rowsIn("Brindlet Junk"), std::vector{world.g});
    const auto program = SimulatedMail::open(world.home.home());
    EXPECT_TRUE(program->mailboxAt(1, "Brindlet Junk"));
    // Taking one off makes none.
    EXPECT_TRUE(account->removeLabel(world.g, "Never There"));
    EXPECT_FALSE(account->open("Never There"));
}

TEST_F(GmailMailTest, PuttingOnAndOffTwiceIsAsOnce) {
    serve();
    for (int i = 0; i < 2; ++i) EXPECT_TRUE(account->addLabel(world.g, "Receipts"));
    EXPECT_EQ(account->labels(world.g), (Strings{"\\Inbox", "Receipts"}));
    for (int i = 0; i < 2; ++i) EXPECT_TRUE(account->removeLabel(world.g, "Receipts"));
    EXPECT_EQ(account->labels(world.g), Strings{"\\Inbox"});
}

TEST_F(GmailMailTest, GmailsOwnFoldersAreNoLabelsToPutOn) {
    serve();
    for (const std::string label : {"\\Inbox", "\\INBOX", "\\Starred", "\\Important", "Receipts",
                                    "Projects/Harbour", "Spam", "Gmail"})
        EXPECT_TRUE(account->mayChange(label)) << label;
    for (const std::string label : {"\\Sent", "\\Draft", "\\Trash", "\\Spam", "\\Made-Up", "INBOX",
                                    "inbox", "[Gmail]/Spam", "[Gmail]/All Mail", "[Gmail]"})
        EXPECT_FALSE(account->mayChange(label)) << label;
}

TEST_F(GmailMailTest, WhatIsFiledUnderALabelItselfFallsBackToAllMail) {
    const std::int64_t filed = world.home.addMessage({.mailbox = world.label, .messageId = "f@h"});
    serve();
    EXPECT_EQ(account->labels(filed), Strings{"\\Inbox"});
    EXPECT_TRUE(account->removeLabel(filed, "\\Inbox"));
    EXPECT_EQ(world.idsIn(world.label), Strings{"g@h"});
    EXPECT_EQ(world.idsIn(world.all), (Strings{"f@h", "g@h"}));
}

TEST_F(GmailMailTest, WhatTheMailProgramMovesShowsAtTheNextLook) {
    serve();
    const auto program = SimulatedMail::open(world.home.home());
    const std::uint32_t uid = uidOf("INBOX", world.g);
    ASSERT_TRUE(
        program->move(world.g, world.label, world.receipts, SimulatedMail::MovedBy::person));
    EXPECT_TRUE(rowsIn("INBOX").empty());
    EXPECT_EQ(rowsIn("Receipts"), std::vector{world.g});
    ASSERT_TRUE(
        program->move(world.g, world.receipts, world.label, SimulatedMail::MovedBy::person));
    EXPECT_EQ(rowsIn("INBOX"), std::vector{world.g});
    EXPECT_GT(uidOf("INBOX", world.g), uid);
    EXPECT_EQ(uidOf("[Gmail]/All Mail", world.g), 1u);
}

TEST_F(GmailMailTest, WhatWentToSpamUnderAnotherRowIsGone) {
    serve();
    const auto program = SimulatedMail::open(world.home.home());
    ASSERT_TRUE(program->move(world.g, world.label, world.spam, SimulatedMail::MovedBy::script));
    EXPECT_FALSE(account->marks(world.g));
    EXPECT_EQ(account->header(world.g), "\r\n");
    EXPECT_FALSE(account->addLabel(world.g, "Receipts"));
    EXPECT_TRUE(account->removeLabel(world.g, "\\Inbox"));
    EXPECT_EQ(world.number("SELECT COUNT(*) FROM labels"), 0);
    EXPECT_TRUE(rowsIn("[Gmail]/All Mail").empty());
    // A label takes it back among all others.
    const std::int64_t row = rowsIn("[Gmail]/Spam").front();
    EXPECT_TRUE(account->addLabel(row, "\\Inbox"));
    EXPECT_EQ(world.idsIn(world.label), Strings{"g@h"});
    EXPECT_EQ(world.idsIn(world.all), Strings{"g@h"});
}

TEST_F(GmailMailTest, UidsHoldAcrossRuns) {
    const std::int64_t second = world.home.addMessage(
        {.mailbox = world.all, .messageId = "h@h", .labels = {world.receipts}});
    serve();
    EXPECT_EQ(uidOf("[Gmail]/All Mail", second), 2u);
    EXPECT_EQ(uidOf("Receipts", second), 1u);
    mail.reset();
    mail = GmailMail::open(world.home.home());
    account = mail->account("me@gmail.example");
    EXPECT_EQ(uidOf("[Gmail]/All Mail", second), 2u);
    EXPECT_EQ(uidOf("Receipts", second), 1u);
}

}  // namespace
}  // namespace brindlet::sample
