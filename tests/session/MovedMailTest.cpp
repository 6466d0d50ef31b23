#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <thread>
#include <vector>

#include "session/MailWorld.h"

// The session and the scripts as they stand, over the stand-in for the script host as a process and
// a simulated mail program with its files.

namespace brindlet {
namespace {

using Strings = std::vector<std::string>;

TEST(MovedMail, AStaleRowIdMovesTheMessageThatIsMeantAndNoOther) {
    MailWorld world;
    const auto first = world.add("a@h");
    world.add("b@h");
    const auto third = world.add("c@h");
    // Each number is another message's by now.
    world.list(third, "a@h");
    world.list(first, "b@h");
    const auto& state = world.open();
    world.move();
    EXPECT_EQ(*state.moveNote, "Moved 2 into Brindlet Junk");
    EXPECT_EQ(world.idsIn("INBOX"), Strings{"c@h"});
    EXPECT_EQ(world.idsIn("Brindlet Junk"), (Strings{"a@h", "b@h"}));
}

TEST(MovedMail, OfTwoWithOneMessageIdTheTickedOneMovesAndBothCountAsMoved) {
    MailWorld world;
    world.addListed("first@h");
    world.addListed("twin@h");
    world.list(world.add("twin@h"), "twin@h");
    auto& state = world.open();
    state.approved.mutate([&](AppState::Ids& ids) { ids.erase(world.listed[2].id); });
    world.move();
    EXPECT_EQ(*state.moveNote, "Moved 2 into Brindlet Junk");
    EXPECT_EQ(world.idsIn("INBOX"), Strings{"twin@h"});
    EXPECT_EQ(state.movedVerdicts().size(), 3u) << "what is listed goes by the Message-ID";
    world.putAllBack();
    EXPECT_EQ(world.idsIn("INBOX"), (Strings{"first@h", "twin@h", "twin@h"}));
}

TEST(MovedMail, ATwinThatStaysBehindStopsTheMoveWhenItIsTheFirst) {
    MailWorld world;
    world.addListed("twin@h");
    world.addListed("other@h");
    world.add("twin@h");
    const auto& state = world.open();
    world.move();
    ASSERT_TRUE(*state.moveError);
    EXPECT_NE((*state.moveError)->find("tagged the message"), std::string::npos);
    EXPECT_TRUE(state.movedAlready->empty());
    EXPECT_EQ(world.idsIn("INBOX"), (Strings{"other@h", "twin@h"}));
    EXPECT_EQ((*state.interrupted.pending)->remaining.size(), 2u);
}

TEST(MovedMail, OddMessageIdsMoveAndAreBookedAndReturn) {
    const Strings odd{"\"q\"%41'#\\|ü@h", "%s%n%00@h",         "$(touch x)`id`@h",
                      "a|b|true@h",       "שלום@דואר.example", "end-of-argv\" & quit & \"@h"};
    MailWorld world;
    world.add("plain@h");
    for (const auto& id : odd) world.addListed(id);
    const auto& state = world.open();
    world.move();
    auto sorted = odd;
    std::sort(sorted.begin(), sorted.end());
    EXPECT_EQ(world.idsIn("Brindlet Junk"), sorted);
    EXPECT_EQ(world.idsIn("INBOX"), Strings{"plain@h"});
    for (const auto& id : odd) EXPECT_TRUE(state.movedAlready->contains(id)) << id;
    EXPECT_FALSE(*state.interrupted.pending);
    world.putAllBack();
    EXPECT_EQ(world.idsIn("Brindlet Junk"), Strings());
}

TEST(MovedMail, AMessageIdWithATabIsLeftWhereItIs) {
    // No message file gives one; the list for the script has a tab between number and id.
    MailWorld world;
    world.addListed("plain@h");
    world.addListed("a\tb@h");
    const auto& state = world.open();
    world.move();
    EXPECT_EQ(*state.moveNote, "Moved 1 of 2 - the rest are still listed");
    EXPECT_EQ(world.idsIn("INBOX"), Strings{"a\tb@h"});
    EXPECT_TRUE(state.approved->contains(world.listed[1].id));
}

TEST(MovedMail, OddFolderNamesAreReachedBothWays) {
    for (const std::string folder :
         {"\"Über\" 100% & Söhne", "It's {50%} \\ done", "Projects/Harbour House/2024", "דואר נכנס",
          "<b>junk</b>|true", "missing value"}) {
        SCOPED_TRACE(folder);
        MailWorld world("Sources of " + folder);
        world.home.addMailbox(world.account, folder);
        world.addListed("a@h");
        world.addListed("b@h");
        auto& state = world.open();
        state.destinations.set(state.account.get()->id, folder);
        world.move();
        EXPECT_EQ(*state.moveNote, "Moved 2 into " + folder);
        EXPECT_EQ(world.idsIn(folder), (Strings{"a@h", "b@h"}));
        world.putAllBack();
        EXPECT_EQ(*state.moveNote, "Put 2 back in " + world.source);
        EXPECT_EQ(world.idsIn(world.source), (Strings{"a@h", "b@h"}));
    }
}

TEST(MovedMail, AMessageThatWillNotMoveStaysListed) {
    MailWorld world;
    for (const char* const id : {"a@h", "b@h", "c@h"}) world.addListed(id);
    world.home.settings.behaviour.immovable = {"b@h"};
    const auto& state = world.open();
    world.move();
    EXPECT_EQ(*state.moveNote, "Moved 2 of 3 - the rest are still listed");
    EXPECT_EQ(world.idsIn("INBOX"), Strings{"b@h"});
    ASSERT_EQ(state.remainingVerdicts().size(), 1u);
}

// The move, its progress, stops from other threads and the end of the program fall on each other.
TEST(MovedMail, MovesTellsIsStoppedAndQuitsSideBySide) {
    constexpr int messages = 30;
    for (int round = 0; round < 6; ++round) {
        SCOPED_TRACE(round);
        const bool stops = round % 3 != 0;
        const bool quits = round % 2 == 0;
        MailWorld world;
        for (int i = 0; i < messages; ++i) world.addListed(std::to_string(i) + "@h");
        world.home.settings.behaviour.pace = 0.02;
        auto& state = world.open();
        auto& queue = world.doubles.mainQueue;
        state.startMove();
        const Task task = *state.moveTask();
        EXPECT_TRUE(queue.pumpUntil([&] { return *state.movedCount > 0 || task.finished(); }));
        std::vector<Task> stopping;
        for (int i = 0; stops && i < 2; ++i)
            stopping.push_back(Task::start(TaskPriority::userInitiated,
                                           [task, &mover = state.mover()](const CancelToken&) {
                                               while (!task.finished()) mover.stopMove();
                                           }));
        if (quits)
            queue.end();
        else
            EXPECT_TRUE(queue.pumpUntil([&] { return task.finished(); }));
        task.wait();
        for (const auto& each : stopping) each.wait();

        // Whatever came first, each message is in one place, and what is booked is where it is
        // said.
        EXPECT_EQ(std::ssize(world.idsIn("INBOX")) + std::ssize(world.idsIn("Brindlet Junk")),
                  messages);
        const auto moved = world.idsIn("Brindlet Junk");
        for (const auto& id : *state.movedAlready)
            EXPECT_TRUE(std::binary_search(moved.begin(), moved.end(), id)) << id;
        EXPECT_EQ(*state.moving, quits) << "a program that has quit is told of nothing more";
    }
}

}  // namespace
}  // namespace brindlet
