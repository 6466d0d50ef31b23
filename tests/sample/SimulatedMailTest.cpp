#include "sample/SimulatedMail.h"

#include <gtest/gtest.h>

#include "SampleHome.h"
#include "SmallWorld.h"
#include "base/Files.h"

namespace brindlet::sample {
namespace {

using Strings = std::vector<std::string>;
using MovedBy = SimulatedMail::MovedBy;

TEST(SimulatedMail, NeedsSettingsAndAnIndex) {
    const doubles::TemporaryDirectories directories;
    EXPECT_FALSE(SimulatedMail::open(directories.home()));
    writeMailSettings(directories.home(), {});
    EXPECT_FALSE(SimulatedMail::open(directories.home()));
}

TEST(SimulatedMail, MailboxesOfOtherAccountsAreNotShown) {
    const auto mail = SimulatedMail::open(SampleHome::shared().home());
    ASSERT_TRUE(mail);
    Strings paths;
    for (const auto& mailbox : mail->mailboxes(2)) paths.push_back(mailbox.path);
    EXPECT_EQ(paths, (Strings{"Inbox", "Sent Items", "Deleted Items", "Junk Email", "Junk E-mail",
                              "Drafts", "Archive", "Bids", "Bids/Boswick & Söhne"}));
}

TEST(SimulatedMail, AMailboxIsFoundByItsPathAndNotByItsLeaf) {
    SmallWorld world;
    world.finish();
    const auto mail = SimulatedMail::open(world.home.home());
    EXPECT_EQ(mail->mailboxAt(0, "Other/Folder")->row, world.other);
    EXPECT_EQ(mail->mailboxAt(0, "other/FOLDER")->row, world.other);
    EXPECT_FALSE(mail->mailboxAt(0, "Folder"));
    EXPECT_FALSE(mail->mailboxAt(1, "Junk"));
    EXPECT_EQ(leafName("Other/Folder"), "Folder");
    EXPECT_EQ(leafName("Junk"), "Junk");
}

TEST(SimulatedMail, TheSameLetterCaseGoesFirst) {
    SmallWorld world;
    const std::int64_t loud = world.home.addMailbox(0, "JUNK");
    world.finish();
    const auto mail = SimulatedMail::open(world.home.home());
    EXPECT_EQ(mail->mailboxAt(0, "JUNK")->row, loud);
    EXPECT_EQ(mail->mailboxAt(0, "Junk")->row, world.junk);
    EXPECT_EQ(mail->mailboxAt(0, "jUNK")->row, world.junk);
}

TEST(SimulatedMail, SearchesAreForWholeIdsWhateverTheirLetterCase) {
    SmallWorld world;
    world.finish();
    const auto mail = SimulatedMail::open(world.home.home());
    EXPECT_EQ(mail->index().messagesWithId(world.inbox, "A@H"), std::vector{world.a});
    EXPECT_TRUE(mail->index().messagesWithId(world.inbox, "a@").empty());
    EXPECT_TRUE(mail->index().messagesWithId(world.junk, "a@h").empty());
    EXPECT_EQ(mail->index().messagesWithId(world.label, "g@h"), std::vector{world.g});
}

TEST(SimulatedMail, AMessageIsMovedOutOfTheMailboxThatListsItAlone) {
    SmallWorld world;
    world.finish();
    const auto mail = SimulatedMail::open(world.home.home());
    EXPECT_FALSE(mail->move(world.a, world.junk, world.other, MovedBy::script));
    EXPECT_FALSE(mail->move(999, world.inbox, world.junk, MovedBy::script));
    // Not into another account.
    EXPECT_FALSE(mail->move(world.a, world.inbox, world.receipts, MovedBy::script));
    EXPECT_TRUE(mail->move(world.a, world.inbox, world.inbox, MovedBy::script));
    EXPECT_EQ(world.idsIn(world.inbox), (Strings{"c@h", "b@h", "a@h"}));
}

TEST(SimulatedMail, AMadeMailboxHoldsMail) {
    SmallWorld world;
    world.finish();
    const auto mail = SimulatedMail::open(world.home.home());
    const auto made = mail->makeMailbox(0, "Größe/100%");
    ASSERT_TRUE(made);
    EXPECT_FALSE(mail->makeMailbox(0, "größe/100%"));
    EXPECT_TRUE(mail->move(world.a, world.inbox, made->row, MovedBy::script));
    EXPECT_EQ(SimulatedMail::open(world.home.home())->mailboxAt(0, "Größe/100%")->row, made->row);
    EXPECT_EQ(world.idsIn(made->row), Strings{"a@h"});
}

TEST(SimulatedGmail, AScriptOnlyAddsALabel) {
    SmallWorld world;
    world.finish();
    const auto mail = SimulatedMail::open(world.home.home());
    EXPECT_TRUE(mail->move(world.g, world.label, world.receipts, MovedBy::script));
    EXPECT_EQ(world.idsIn(world.label), Strings{"g@h"});
    EXPECT_EQ(world.idsIn(world.receipts), Strings{"g@h"});
    EXPECT_TRUE(mail->move(world.g, world.label, world.all, MovedBy::script));
    EXPECT_EQ(world.idsIn(world.label), Strings{"g@h"});
}

TEST(SimulatedGmail, APersonTakesTheOldLabelOff) {
    SmallWorld world;
    world.finish();
    const auto mail = SimulatedMail::open(world.home.home());
    EXPECT_TRUE(mail->move(world.g, world.label, world.receipts, MovedBy::person));
    EXPECT_TRUE(world.idsIn(world.label).empty());
    EXPECT_EQ(world.idsIn(world.receipts), Strings{"g@h"});
    EXPECT_EQ(world.idsIn(world.all), Strings{"g@h"});
}

TEST(SimulatedGmail, WhatIsFiledUnderAFolderItselfIsTaggedOrMoved) {
    SmallWorld world;
    const std::int64_t filed = world.home.addMessage({.mailbox = world.label, .messageId = "f@h"});
    world.finish();
    const auto mail = SimulatedMail::open(world.home.home());
    EXPECT_TRUE(mail->move(filed, world.label, world.receipts, MovedBy::script));
    EXPECT_EQ(world.idsIn(world.label), (Strings{"f@h", "g@h"}));
    EXPECT_TRUE(mail->move(filed, world.label, world.receipts, MovedBy::person));
    EXPECT_EQ(world.idsIn(world.label), Strings{"g@h"});
    EXPECT_EQ(world.idsIn(world.receipts), Strings{"f@h"});
}

TEST(SimulatedGmail, SpamTakesAMessageOutOfAllMailAndGivesItBack) {
    SmallWorld world;
    world.finish();
    const auto mail = SimulatedMail::open(world.home.home());
    ASSERT_TRUE(mail->move(world.g, world.label, world.spam, MovedBy::script));
    EXPECT_TRUE(world.idsIn(world.label).empty());
    EXPECT_TRUE(world.idsIn(world.all).empty());
    EXPECT_EQ(world.idsIn(world.spam), Strings{"g@h"});
    const std::int64_t row = mail->index().messages(world.spam).front();
    ASSERT_TRUE(mail->move(row, world.spam, world.label, MovedBy::script));
    EXPECT_EQ(world.idsIn(world.label), Strings{"g@h"});
    EXPECT_EQ(world.idsIn(world.all), Strings{"g@h"});
    EXPECT_TRUE(world.idsIn(world.spam).empty());
}

TEST(SimulatedServer, ASlowOneMovesWhenItsTimeHasCome) {
    SmallWorld world;
    world.home.settings.behaviour.slowServer = 2;
    world.finish();
    const auto mail = SimulatedMail::open(world.home.home());
    EXPECT_TRUE(mail->move(world.a, world.inbox, world.junk, MovedBy::script));
    mail->advance(1.9);
    EXPECT_EQ(world.idsIn(world.inbox).size(), 3u);
    mail->advance(0.2);
    EXPECT_EQ(world.idsIn(world.inbox).size(), 2u);
    EXPECT_EQ(world.idsIn(world.junk), Strings{"a@h"});
}

TEST(SimulatedServer, WhatASlowOneStillOwesIsDoneByTheNextStart) {
    SmallWorld world;
    world.home.settings.behaviour.slowServer = 60;
    world.finish();
    {
        const auto mail = SimulatedMail::open(world.home.home());
        mail->move(world.a, world.inbox, world.junk, MovedBy::script);
        mail->move(world.b, world.inbox, world.junk, MovedBy::script);
    }
    EXPECT_EQ(world.idsIn(world.inbox).size(), 3u);
    (void)SimulatedMail::open(world.home.home());
    EXPECT_EQ(world.idsIn(world.junk), (Strings{"b@h", "a@h"}));
}

TEST(SimulatedServer, AnUndoPutsBackWhatCameIntoAFreshFolder) {
    SmallWorld world;
    world.home.settings.behaviour.undoesFreshFolder = 1;
    world.finish();
    const auto mail = SimulatedMail::open(world.home.home());
    const auto made = mail->makeMailbox(0, "New");
    mail->move(world.a, world.inbox, made->row, MovedBy::script);
    mail->move(world.b, world.inbox, world.junk, MovedBy::script);
    EXPECT_EQ(world.idsIn(made->row), Strings{"a@h"});
    mail->advance(1);
    EXPECT_TRUE(world.idsIn(made->row).empty());
    EXPECT_EQ(world.idsIn(world.inbox), (Strings{"c@h", "a@h"}));
    EXPECT_EQ(world.idsIn(world.junk), Strings{"b@h"});
}

TEST(SimulatedServer, ALateArrivalInAFreshFolderIsUndoneStillLater) {
    SmallWorld world;
    world.home.settings.behaviour.undoesFreshFolder = 1;
    world.home.settings.behaviour.slowServer = 2;
    world.finish();
    const auto mail = SimulatedMail::open(world.home.home());
    const auto made = mail->makeMailbox(0, "New");
    mail->move(world.a, world.inbox, made->row, MovedBy::script);
    mail->advance(2.5);
    EXPECT_EQ(world.idsIn(made->row), Strings{"a@h"});
    mail->comeToRest();
    EXPECT_TRUE(world.idsIn(made->row).empty());
    EXPECT_EQ(world.idsIn(world.inbox).size(), 3u);
}

TEST(SimulatedMail, TwoThatAreOpenAtOnceSeeEachOthersMoves) {
    SmallWorld world;
    world.finish();
    const auto one = SimulatedMail::open(world.home.home());
    const auto other = SimulatedMail::open(world.home.home());
    EXPECT_EQ(other->index().messages(world.inbox).size(), 3u);
    ASSERT_TRUE(one->move(world.a, world.inbox, world.junk, MovedBy::script));
    EXPECT_EQ(other->index().messages(world.inbox), (std::vector{world.c, world.b}));
    EXPECT_FALSE(other->move(world.a, world.inbox, world.junk, MovedBy::script));
    ASSERT_TRUE(other->move(world.b, world.inbox, world.junk, MovedBy::script));
    EXPECT_EQ(one->index().messages(world.junk).size(), 2u);
}

TEST(SimulatedMail, TheIndexStaysInWriteAheadModeWithItsSideFiles) {
    SmallWorld world;
    world.finish();
    SimulatedMail::open(world.home.home())->move(world.a, world.inbox, world.junk, MovedBy::script);
    EXPECT_TRUE(files::exists(world.home.indexPath() + "-wal"));
    EXPECT_TRUE(files::exists(world.home.indexPath() + "-shm"));
    EXPECT_EQ(world.number("SELECT journal_mode = 'wal' FROM pragma_journal_mode"), 1);
}

}  // namespace
}  // namespace brindlet::sample
