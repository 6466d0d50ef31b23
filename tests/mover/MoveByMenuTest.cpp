#include "mover/MoverWorld.h"
#include "mover/Resources.h"

namespace brindlet {
namespace {

using IDs = std::set<std::string>;
using Launch = MoverWorld::Launch;
using Reply = MoverWorld::Reply;
using Step = MoverWorld::Step;
using enum Mover::Phase;

std::vector<std::string> batchSizes(const MoverWorld& world) {
    std::vector<std::string> sizes;
    for (const auto& launch : world.processes.launches()) sizes.push_back(launch.arguments.at(6));
    return sizes;
}

/// The one file of a call while its script runs.
std::string listText(const Launch& launch) {
    return fileText(launch.arguments.at(5));
}

TEST(MoveByMenu, NothingToMoveIsNoRunAtAll) {
    MoverWorld world;
    for (const auto& items : {std::vector<PendingMove::Item>{}, {{1, ""}, {2, ""}}}) {
        world.request.items = items;
        EXPECT_EQ(world.moveByMenu(), MoveOutcome());
    }
    EXPECT_TRUE(world.processes.launches().empty());
    EXPECT_TRUE(files::list(world.directories.temporary())->empty());
}

TEST(MoveByMenu, RunsTheScriptWithItsFiveArguments) {
    MoverWorld world;
    world.menuSays({{"3|3|a@x\nb@x\nc@x\n"}});
    EXPECT_EQ(world.moveByMenu(), (MoveOutcome{3, {"a@x", "b@x", "c@x"}, {}}));
    const auto launches = world.processes.launches();
    ASSERT_EQ(launches.size(), 1u);
    EXPECT_EQ(launches[0].input, resources::menuMoveScript);
    auto arguments = launches[0].arguments;
    ASSERT_EQ(arguments.size(), 7u);
    const auto folder = world.directories.temporary() + "/brindlet-ui-";
    EXPECT_EQ(arguments[5].substr(0, folder.size()), folder);
    EXPECT_EQ(arguments[5].size(), folder.size() + std::string("01234567.txt").size());
    arguments.erase(arguments.begin() + 5);
    EXPECT_EQ(arguments, (std::vector<std::string>{world.scriptHost, "-", "ann@home.example",
                                                   "INBOX", "Junk", "200"}));
}

TEST(MoveByMenu, ALocalMailboxIsNotRefusedHere) {
    MoverWorld world;
    world.request.account.address.clear();
    world.menuSays({{"0|0|none of them are in INBOX"}});
    EXPECT_EQ(world.moveByMenu(), MoveOutcome());
    EXPECT_EQ(world.processes.launches().size(), 1u);
}

TEST(MoveByMenu, EachBatchIsToldWhatIsLeft) {
    MoverWorld world;
    world.request.items = {{1, "c@x"}, {2, "a@x"}, {3, ""}, {4, "b@x"}, {5, "a@x"}};
    int batch = 0;
    world.processes.setScript([&](const Launch& launch) {
        switch (++batch) {
            case 1:
                EXPECT_EQ(listText(launch), "\na@x\nb@x\nc@x\n");
                return Reply{"2|1| \tb@x \n"};
            case 2:
                EXPECT_EQ(listText(launch), "\na@x\nc@x\n");
                return Reply{"2|2|c@x\na@x"};
            default:
                ADD_FAILURE() << "nothing is left";
                return Reply{};
        }
    });
    EXPECT_EQ(world.moveByMenu(), (MoveOutcome{3, {"a@x", "b@x", "c@x"}, {}}));
    EXPECT_EQ(world.steps, (std::vector<Step>{{move, 1, 3}, {move, 3, 3}}))
        << "the total counts each id once, and no empty one";
    EXPECT_TRUE(files::list(world.directories.temporary())->empty());
}

TEST(MoveByMenu, IdsThatNobodyAskedForCountAsGoneToo) {
    MoverWorld world;
    world.menuSays({{"3|-1|z@x\na@x\n"}, {"0|0|none of them are in INBOX\n"}});
    EXPECT_EQ(world.moveByMenu(), (MoveOutcome{2, {"a@x", "z@x"}, {}}));
    EXPECT_EQ(world.steps, (std::vector<Step>{{move, 2, 3}}));
}

TEST(MoveByMenu, GoneWithoutIdsSendsTheSameBatchAgain) {
    MoverWorld world;
    std::vector<std::string> lists;
    int batch = 0;
    world.processes.setScript([&](const Launch& launch) {
        lists.push_back(listText(launch));
        return ++batch < 9 ? Reply{"3|3|"} : Reply{"3|3|a@x\nb@x\nc@x"};
    });
    EXPECT_EQ(world.moveByMenu().moved, 3);
    EXPECT_EQ(lists, std::vector<std::string>(9, "\na@x\nb@x\nc@x\n"));
    EXPECT_EQ(batchSizes(world), std::vector<std::string>(9, "200")) << "it is no stall";
}

TEST(MoveByMenu, EndsInSilenceWhenTheRestIsNoLongerThere) {
    for (const auto* reason :
         {"0|0|none of them are in INBOX", "0|0|the viewer: none of them are in x"}) {
        MoverWorld world;
        world.menuSays({{"1|1|a@x"}, {reason}});
        EXPECT_EQ(world.moveByMenu(), (MoveOutcome{1, {"a@x"}, {}})) << reason;
    }
}

TEST(MoveByMenu, ShowsReasonsThatThePersonCanMendAsTheyStand) {
    for (const std::string reason :
         {"the viewer would not select anything",
          "Mail's Move to menu is closed to us - Mail has to be the front app",
          "no viewer | at all"}) {
        MoverWorld world;
        world.menuSays({{"1|1|a@x"}, {"0|0| " + reason + "\n"}});
        EXPECT_EQ(world.moveByMenu(), (MoveOutcome{1, {"a@x"}, reason}));
        EXPECT_TRUE(files::list(world.directories.temporary())->empty());
    }
}

TEST(MoveByMenu, GivesUpAfterThreeFruitlessBatchesInARow) {
    for (const auto* fruitless : {"5|0|\n", "5|0|  ", "200|0|Some reason", "5|0|THE VIEWER"}) {
        MoverWorld world;
        world.menuSays({{fruitless}, {fruitless}, {fruitless}});
        EXPECT_EQ(world.moveByMenu(),
                  (MoveOutcome{0,
                               {},
                               "Mail stopped moving after 0 of 3. Its message list turns "
                               "unreliable on very long runs - quit Mail, open it again, and "
                               "Brindlet will carry on with the rest."}))
            << fruitless;
        EXPECT_EQ(batchSizes(world), (std::vector<std::string>{"200", "100", "50"}));
    }
}

TEST(MoveByMenu, ASuccessForgivesStallsButKeepsTheSize) {
    MoverWorld world;
    world.menuSays({{"5|0|"}, {"5|0|"}, {"5|1|a@x"}, {"5|0|"}, {"5|0|"}, {"5|0|"}});
    const auto outcome = world.moveByMenu();
    EXPECT_EQ(outcome.moved, 1);
    EXPECT_EQ(outcome.error.value_or("").substr(0, 34), "Mail stopped moving after 1 of 3. ");
    EXPECT_EQ(batchSizes(world), (std::vector<std::string>{"200", "100", "50", "50", "25", "25"}));
}

TEST(MoveByMenu, NoBatchIsSmallerThanTwentyFive) {
    MoverWorld world;
    world.request.items.clear();
    std::vector<Reply> replies;
    for (int i = 0; i < 9; ++i) {
        const auto id = std::to_string(i) + "@x";
        world.request.items.push_back({i, id});
        replies.insert(replies.end(), {{"5|0|"}, {"5|0|"}, {"5|1|" + id}});
    }
    world.menuSays(replies);
    EXPECT_EQ(world.moveByMenu().moved, 9);
    const auto sizes = batchSizes(world);
    EXPECT_EQ((std::vector(sizes.begin(), sizes.begin() + 6)),
              (std::vector<std::string>{"200", "100", "50", "50", "25", "25"}));
    EXPECT_EQ((std::vector(sizes.begin() + 6, sizes.end())), std::vector<std::string>(21, "25"));
}

TEST(MoveByMenu, GroupsTheNumbersOfItsSentence) {
    MoverWorld world;
    world.request.items.clear();
    std::string gone;
    for (int i = 0; i < 2345; ++i) {
        world.request.items.push_back({i, std::to_string(i) + "@x"});
        if (i < 1200) gone += std::to_string(i) + "@x\n";
    }
    world.menuSays({{"1200|1200|" + gone}, {"5|0|"}, {"5|0|"}, {"5|0|"}});
    EXPECT_EQ(world.moveByMenu().error.value_or("").substr(0, 42),
              "Mail stopped moving after 1,200 of 2,345. ");
}

TEST(MoveByMenu, ShowsWhatItCannotRead) {
    for (const auto* output : {"five|2|a@x\n", "\n", "5|2\n", "3||a@x", "|2|a@x"}) {
        MoverWorld world;
        world.menuSays({{"1|1|a@x"}, {output}});
        EXPECT_EQ(world.moveByMenu(), (MoveOutcome{1, {"a@x"}, output}));
    }
    MoverWorld world;
    world.menuSays({{""}});
    EXPECT_EQ(world.moveByMenu().error, "Mail said nothing back.");
}

TEST(MoveByMenu, EndsWithTheRunnersError) {
    const struct {
        Reply reply;
        const char* sentence;
    } rows[] = {
        {{.error = "1:2: execution error: Mail has no account for ann@home.example (-2700)\n"},
         "1:2: Mail has no account for ann@home.example (-2700)"},
        {{.output = "5|2|b@x", .error = "not allowed assistive access"},
         "Moving Gmail mail needs one permission: switch Brindlet on under Privacy & Security > "
         "Accessibility, then try again."},
    };
    for (const auto& row : rows) {
        MoverWorld world;
        world.menuSays({{"1|1|a@x"}, row.reply});
        EXPECT_EQ(world.moveByMenu(), (MoveOutcome{1, {"a@x"}, row.sentence}));
        EXPECT_TRUE(files::list(world.directories.temporary())->empty());
    }
    MoverWorld world;
    world.processes.setStarts(false);
    EXPECT_EQ(world.moveByMenu().error, "Couldn't start AppleScript.");
}

TEST(MoveByMenu, AStopBetweenBatchesEndsInSilence) {
    MoverWorld world;
    world.menuSays({{"1|1|a@x"}});
    const auto outcome =
        world.mover.moveByMenu(world.request, [&](auto&&...) { world.mover.stopMove(); });
    EXPECT_EQ(outcome, (MoveOutcome{1, {"a@x"}, {}}));
    EXPECT_TRUE(files::list(world.directories.temporary())->empty());
}

TEST(MoveByMenu, AStopWithinABatchLeavesAnUnreadableOne) {
    MoverWorld world;
    world.processes.setScript([&](const Launch&) {
        world.mover.stopMove();
        return Reply{};
    });
    EXPECT_EQ(world.moveByMenu(), (MoveOutcome{0, {}, "Mail said nothing back."}));
    EXPECT_EQ(world.processes.terminations(), 1);
}

TEST(MoveByMenu, AStopThatCameBeforeTheMoveIsLost) {
    MoverWorld world;
    world.mover.stopMove();
    world.menuSays({{"3|3|a@x\nb@x\nc@x"}});
    EXPECT_EQ(world.moveByMenu().moved, 3);
}

TEST(MoveByMenu, AListThatCannotBeWrittenIsTheScriptsToReport) {
    MoverWorld world;
    world.directories.clear();
    world.menuSays({{.error = "File not found. (-43)"}});
    EXPECT_EQ(world.moveByMenu().error, "File not found. (-43)");
}

}  // namespace
}  // namespace brindlet
