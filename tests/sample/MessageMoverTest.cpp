#include "sample/MessageMover.h"

#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>

#include "SmallWorld.h"
#include "base/Files.h"

namespace brindlet::sample {
namespace {

using Strings = std::vector<std::string>;
using MovedBy = SimulatedMail::MovedBy;

TEST(MessageMover, AMoveTakesTheFileAndGivesANewRow) {
    SmallWorld world;
    world.finish();
    const Strings before = world.files();
    const std::string text = files::read(world.home.dataRoot() + '/' + before.front()).value_or("");
    ASSERT_TRUE(SimulatedMail::open(world.home.home())
                    ->move(world.a, world.inbox, world.junk, MovedBy::script));
    EXPECT_EQ(world.idsIn(world.inbox), (Strings{"c@h", "b@h"}));
    EXPECT_EQ(world.idsIn(world.junk), Strings{"a@h"});
    const std::int64_t row = world.number("SELECT MAX(ROWID) FROM messages");
    EXPECT_EQ(row, world.g + 1);
    const Strings after = world.files();
    EXPECT_EQ(after.size(), before.size());
    const auto moved = std::find_if(after.begin(), after.end(), [&](const std::string& path) {
        return path.ends_with('/' + std::to_string(row) + ".emlx");
    });
    ASSERT_NE(moved, after.end());
    EXPECT_NE(moved->find("/Junk.mbox/"), std::string::npos);
    EXPECT_NE(files::read(world.home.dataRoot() + '/' + *moved)->find("<a@h>"), std::string::npos);
}

TEST(MessageMover, WhatBelongsToAMessageFollowsIt) {
    SmallWorld world;
    const std::int64_t row = world.home.addMessage({.mailbox = world.inbox,
                                                    .messageId = "p@h",
                                                    .kind = FileKind::partial,
                                                    .attachment = "plan.pdf",
                                                    .labels = {world.other}});
    world.finish();
    ASSERT_TRUE(SimulatedMail::open(world.home.home())
                    ->move(row, world.inbox, world.junk, MovedBy::script));
    const std::string now = std::to_string(row + 1);
    const auto found = world.files();
    const auto ends = [&](const std::string& tail) {
        return std::count_if(found.begin(), found.end(), [&](const std::string& path) {
            return path.ends_with(tail) && path.find("/Junk.mbox/") != std::string::npos;
        });
    };
    EXPECT_EQ(ends("/Messages/" + now + ".partial.emlx"), 1);
    EXPECT_EQ(ends("/Attachments/" + now + "/2/plan.pdf"), 1);
    EXPECT_EQ(world.number("SELECT message FROM attachments"), row + 1);
    EXPECT_EQ(world.number("SELECT message_id FROM labels WHERE mailbox_id = " +
                           std::to_string(world.other)),
              row + 1);
}

TEST(MessageMover, AMessageWithoutAFileMovesInTheIndexAlone) {
    SmallWorld world;
    const std::int64_t row =
        world.home.addMessage({.mailbox = world.inbox, .messageId = "lost@h", .withFile = false});
    world.finish();
    const Strings before = world.files();
    ASSERT_TRUE(SimulatedMail::open(world.home.home())
                    ->move(row, world.inbox, world.junk, MovedBy::script));
    EXPECT_EQ(world.idsIn(world.junk), Strings{"lost@h"});
    EXPECT_EQ(world.files(), before);
}

TEST(MessageMover, AFileThatCannotBeLinkedMovesNothing) {
    SmallWorld world;
    world.finish();
    // Something stands where the file must go.
    const std::string data = world.home.dataRoot() + '/' +
                             mailboxDataDirectory(world.home.settings.accounts[0].id, "Junk");
    files::write(messageDirectory(data, world.g + 1) + '/' + std::to_string(world.g + 1) + ".emlx",
                 "in the way");
    const Strings before = world.files();
    const auto mail = SimulatedMail::open(world.home.home());
    EXPECT_FALSE(mail->move(world.a, world.inbox, world.junk, MovedBy::script));
    EXPECT_EQ(world.idsIn(world.inbox).size(), 3u);
    EXPECT_EQ(world.files(), before);
}

TEST(MessageMover, TalliesOfMailboxesFollow) {
    SmallWorld world;
    world.finish();
    const std::string counts =
        "SELECT total_count * 100 + unread_count FROM mailboxes"
        " WHERE ROWID = ";
    EXPECT_EQ(world.number(counts + std::to_string(world.inbox)), 303);
    SimulatedMail::open(world.home.home())->move(world.a, world.inbox, world.junk, MovedBy::script);
    EXPECT_EQ(world.number(counts + std::to_string(world.inbox)), 202);
    EXPECT_EQ(world.number(counts + std::to_string(world.junk)), 101);
}

struct Kill : ::testing::TestWithParam<MoveStep> {};

TEST_P(Kill, LeavesAMoveThatTheNextStartFinishesOrUndoes) {
    GTEST_FLAG_SET(death_test_style, "fast");
    SmallWorld world;
    const std::int64_t row = world.home.addMessage({.mailbox = world.inbox,
                                                    .messageId = "p@h",
                                                    .kind = FileKind::partial,
                                                    .attachment = "plan.pdf"});
    world.finish();
    const std::size_t count = world.files().size();
    EXPECT_EXIT(
        {
            const auto mail = SimulatedMail::open(world.home.home(), [](MoveStep step) {
                if (step == GetParam()) ::raise(SIGKILL);
            });
            mail->move(row, world.inbox, world.junk, MovedBy::script);
        },
        ::testing::KilledBySignal(SIGKILL), "");
    const bool committed = GetParam() == MoveStep::committed || GetParam() == MoveStep::removed;
    // The index is whole at any moment.
    EXPECT_EQ(world.idsIn(world.junk).size(), committed ? 1u : 0u);
    EXPECT_EQ(world.idsIn(world.inbox).size(), committed ? 3u : 4u);

    const auto mail = SimulatedMail::open(world.home.home());
    EXPECT_EQ(world.idsIn(world.junk).size(), committed ? 1u : 0u);
    const Strings left = world.files();
    EXPECT_EQ(left.size(), count);
    for (const std::string& path : left) {
        const bool moved =
            path.find("partial") != std::string::npos || path.find("plan.pdf") != std::string::npos;
        EXPECT_EQ(path.find("/Junk.mbox/") != std::string::npos, moved && committed) << path;
    }
    EXPECT_FALSE(files::exists(world.home.home() + "/mail-program.move"));
    // And the message can be moved from where it is.
    EXPECT_TRUE(mail->move(committed ? row + 1 : row, committed ? world.junk : world.inbox,
                           world.other, MovedBy::script));
    EXPECT_EQ(world.idsIn(world.other), Strings{"p@h"});
    EXPECT_EQ(world.files().size(), count);
}

INSTANTIATE_TEST_SUITE_P(AtEachStep, Kill,
                         ::testing::Values(MoveStep::noted, MoveStep::linked, MoveStep::committed,
                                           MoveStep::removed));

TEST(MessageMover, WhatAnotherProcessLeftMeanwhileIsSettledBeforeTheNextMove) {
    SmallWorld world;
    world.finish();
    const Strings before = world.files();
    const auto mail = SimulatedMail::open(world.home.home());
    // Another one was killed between its link and its commit.
    const std::string from = world.home.dataRoot() + '/' + before.front();
    const std::string to = from.substr(0, from.rfind('/')) + "/900.emlx";
    ASSERT_TRUE(files::copy(from, to));
    files::write(world.home.home() + "/mail-program.move",
                 R"({"newRow":900,"from":")" + from + R"(","to":")" + to +
                     R"(","attachmentsFrom":"","attachmentsTo":""})");
    EXPECT_TRUE(mail->move(world.b, world.inbox, world.junk, MovedBy::script));
    EXPECT_FALSE(files::exists(to));
    EXPECT_TRUE(files::exists(from));
    EXPECT_EQ(world.files().size(), before.size());
    EXPECT_EQ(world.idsIn(world.inbox), (Strings{"c@h", "a@h"}));
}

}  // namespace
}  // namespace brindlet::sample
