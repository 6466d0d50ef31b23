#include "mover/MoverWorld.h"
#include "mover/Resources.h"

namespace brindlet {
namespace {

using IDs = std::set<std::string>;
using Launch = MoverWorld::Launch;
using Reply = MoverWorld::Reply;
using Step = MoverWorld::Step;
using enum Mover::Phase;

TEST(MoveMessages, NothingToMoveIsNoRunAtAll) {
    MoverWorld world;
    world.request.items.clear();
    world.request.account.address.clear();
    EXPECT_EQ(world.moveMessages(), MoveOutcome());
    EXPECT_TRUE(world.processes.launches().empty());
    EXPECT_TRUE(files::list(world.directories.temporary())->empty());
}

TEST(MoveMessages, ALocalMailboxIsRefusedBeforeAnythingIsWritten) {
    MoverWorld world;
    for (const auto& [name, label] : {std::pair{"On My Mac", "On My Mac"}, {"", "6B1D4E8A"}}) {
        world.request.account = {"6B1D4E8A-0C52-4D39-9F6B-2F1A7C90E3D5", "", name, {}};
        const MoveOutcome refused{
            0,
            {},
            std::string(label) +
                " is a local mailbox on this Mac, not a mail account - Brindlet can sort it but "
                "can't move from it."};
        EXPECT_EQ(world.moveMessages(), refused);
    }
    EXPECT_TRUE(world.processes.launches().empty());
    EXPECT_TRUE(files::list(world.directories.temporary())->empty());
}

TEST(MoveMessages, RunsTheScriptWithItsSevenArguments) {
    MoverWorld world;
    world.moveMessages();
    world.mover.moveMessages(world.request, true, world.recorder());
    const auto launches = world.processes.launches();
    ASSERT_EQ(launches.size(), 2u);
    EXPECT_EQ(launches[0].input, resources::bulkMoveScript);
    ASSERT_EQ(launches[0].arguments.size(), 9u);
    EXPECT_EQ(launches[0].arguments[0], world.scriptHost);
    EXPECT_EQ(launches[0].arguments[1], "-");
    const BulkArguments arguments(launches[0].arguments);
    EXPECT_EQ(arguments.address, "ann@home.example");
    EXPECT_EQ(arguments.destination, "Junk");
    EXPECT_EQ(arguments.source, "INBOX");
    EXPECT_EQ(arguments.labelOnly, "0");
    EXPECT_EQ(BulkArguments(launches[1].arguments).labelOnly, "1");
}

TEST(MoveMessages, TalksThroughThreeFilesOfOneFreshSuffix) {
    MoverWorld world;
    world.request.items = {{9007199254740993, "a \"b\"%\u00fc@x"}, {-7, ""}, {13, "c@x"}};
    world.processes.setScript([](const Launch& launch) {
        const BulkArguments arguments(launch.arguments);
        EXPECT_EQ(fileText(arguments.ids), "9007199254740993\ta \"b\"%\u00fc@x\n-7\t\n13\tc@x");
        EXPECT_EQ(fileText(arguments.progress), "scan|0|0");
        EXPECT_EQ(fileText(arguments.done), "");
        return Reply{"1|1|false|false"};
    });
    world.moveMessages();
    world.moveMessages();
    IDs suffixes;
    for (const auto& launch : world.processes.launches()) {
        const BulkArguments arguments(launch.arguments);
        const auto folder = world.directories.temporary() + "/brindlet-";
        const auto suffix = arguments.ids.substr((folder + "ids-").size(), 8);
        EXPECT_EQ(suffix.find_first_not_of("0123456789ABCDEF"), std::string::npos) << suffix;
        suffixes.insert(suffix);
        EXPECT_EQ(arguments.ids, folder + "ids-" + suffix + ".txt");
        EXPECT_EQ(arguments.progress, folder + "move-" + suffix + ".txt");
        EXPECT_EQ(arguments.done, folder + "moved-ids-" + suffix + ".txt");
    }
    EXPECT_EQ(suffixes.size(), 2u);
    EXPECT_EQ(files::list(world.directories.temporary())->size(), 6u) << "they are kept";
}

TEST(MoveMessages, TwentyThousandMessagesAreOneRun) {
    MoverWorld world;
    world.request.items.clear();
    std::string done;
    for (int i = 0; i < 20'000; ++i) {
        world.request.items.push_back({i, std::to_string(i) + "@x"});
        done += std::to_string(i) + "@x\n";
    }
    world.bulkSays("20000|20000|false|false\n", "", done);
    const auto outcome = world.moveMessages();
    EXPECT_EQ(outcome.moved, 20'000);
    EXPECT_EQ(outcome.landed.size(), 20'000u);
    EXPECT_EQ(outcome.error, std::nullopt);
    ASSERT_EQ(world.processes.launches().size(), 1u);
}

TEST(MoveMessages, AResultCountsAsTheScriptSays) {
    const struct {
        const char* output;
        MoveOutcome outcome;
    } rows[] = {
        {"3|40|false|false\n", {3, {"a@x", "b@x"}, {}}},
        {"12", {12, {"a@x", "b@x"}, {}}},
        {"12|5", {12, {"a@x", "b@x"}, {}}},
        {"-2|5|true|false", {-2, {"a@x", "b@x"}, {}}},
        // The server has undone nothing that was not done.
        {"0|3|true|false", {0, {"a@x", "b@x"}, {}}},
        {"0|0|true|false", {0, {"a@x", "b@x"}, {}}},
        {"4|1|true|false", {4, {"a@x", "b@x"}, {}}},
        // Nobody knows how many are there.
        {"4|-1|true|false", {4, {"a@x", "b@x"}, {}}},
        {"4|many|true|false", {4, {"a@x", "b@x"}, {}}},
        // The folder was there before.
        {"4|0|false|false", {4, {"a@x", "b@x"}, {}}},
    };
    for (const auto& row : rows) {
        MoverWorld world;
        world.bulkSays(row.output, "a warning\n", "a@x\n  \nb@x\n");
        EXPECT_EQ(world.moveMessages(), row.outcome) << row.output;
    }
}

TEST(MoveMessages, AFreshFolderThatTheServerEmptiedTakesEverythingBack) {
    const MoveOutcome undone{0,
                             {},
                             "Junk was just created and the server put everything back. Try again "
                             "now it exists, or pick a folder that is already there."};
    for (const auto* output : {"4|0|true|false", "1|0|true", "4|0||true"}) {
        MoverWorld world;
        world.bulkSays(output, "", "a@x\nb@x\n");
        EXPECT_EQ(world.moveMessages(), undone) << output;
    }
}

TEST(MoveMessages, AMessageThatStaysInTheSourceEndsTheMove) {
    const MoveOutcome stuck{
        0,
        {},
        "ann@home.example tagged the message with Junk but left it in INBOX. Gmail treats folders "
        "as labels, so filing there never empties the inbox - only Spam and Bin do. Nothing else "
        "was moved; choose Spam and run it again."};
    // It is asked first, so it beats the fresh folder.
    for (const auto* output : {"0|9|false|true", "1|0|true|true"}) {
        MoverWorld world;
        world.bulkSays(output, "", "a@x\n");
        EXPECT_EQ(world.moveMessages(), stuck) << output;
    }
}

TEST(MoveMessages, ThatCannotStartSaysSo) {
    MoverWorld world;
    world.processes.setStarts(false);
    EXPECT_EQ(world.moveMessages(), (MoveOutcome{0, {}, "Couldn't start AppleScript."}));
    EXPECT_TRUE(world.passing.sleeps.empty());
}

TEST(MoveMessages, WithoutAResultShowsTheLastLineOfTheErrorText) {
    const struct {
        const char* error;
        const char* shown;
    } rows[] = {
        {"1103:1151: execution error: Mail has no account for ann@home.example (-2700)\n",
         "1103:1151: Mail has no account for ann@home.example (-2700)"},
        {"x\nexecution error: Mail has no folder INBOX (-1728)\n\n\n", "Mail has no folder INBOX"},
        {"execution error: Mail has no folder A (-1728)B", "Mail has no folder AB"},
        {"\t only spaces and tabs go\u00a0 ", "only spaces and tabs go\u00a0"},
        {"real\n \n", ""},
        {"a\xC0z", "a\uFFFDz"},
        // Permissions are not told apart here.
        {"not authorized (-1719)", "not authorized (-1719)"},
        {"", "Mail refused the move."},
        {"\n\n", "Mail refused the move."},
    };
    for (const auto& row : rows)
        for (const auto* output : {"", " \n", "||", "three|40|false|false"}) {
            MoverWorld world;
            world.bulkSays(output, row.error, "a@x\n");
            EXPECT_EQ(world.moveMessages(), (MoveOutcome{1, {"a@x"}, row.shown})) << row.error;
        }
}

TEST(MoveMessages, TellsThatTheMailProgramClosed) {
    const std::string closed = "Mail closed before it finished.";
    const struct {
        const char* error;
        std::string shown;
    } rows[] = {
        {"1:2: execution error: Mail got an error: connection is invalid. (-609)\n", closed},
        {"error -609\nlast", closed},
        {"Application is not running.\nlast", closed},
        {"connection is invalid\nlast", closed},
        {"Connection is invalid\nNot running\nlast", "last"},
    };
    for (const auto& row : rows) {
        MoverWorld world;
        world.bulkSays("", row.error, "a@x\nb@x\n");
        EXPECT_EQ(world.moveMessages(), (MoveOutcome{2, {"a@x", "b@x"}, row.shown})) << row.error;
    }
    MoverWorld world;
    world.runningApps.running.set({"com.apple.finder"});
    world.bulkSays("", "execution error: Mail has no folder INBOX (-2700)");
    EXPECT_EQ(world.moveMessages(), (MoveOutcome{0, {}, closed}));
    world.bulkSays("3|40|false|false");
    EXPECT_EQ(world.moveMessages(), (MoveOutcome{3, {}, {}})) << "a result needs no asking";
}

TEST(MoveMessages, AStopIsNoError) {
    for (const bool stops : {true, false}) {
        MoverWorld world;
        world.processes.setScript([&](const Launch& launch) {
            files::write(BulkArguments(launch.arguments).done, "a@x\nb@x\n");
            if (stops) world.mover.stopMove();
            return Reply{};
        });
        const auto outcome = world.moveMessages();
        EXPECT_EQ(outcome.moved, 2);
        EXPECT_EQ(outcome.landed, (IDs{"a@x", "b@x"}));
        EXPECT_EQ(outcome.error.has_value(), !stops);
        EXPECT_EQ(world.processes.terminations(), stops ? 1 : 0);
    }
}

TEST(MoveMessages, AResultBeatsAStop) {
    MoverWorld world;
    world.processes.setScript([&](const Launch&) {
        world.mover.stopMove();
        return Reply{"0|9|false|true"};
    });
    EXPECT_TRUE(world.moveMessages().error);
}

TEST(MoveMessages, AStopThatCameBeforeTheMoveIsLost) {
    MoverWorld world;
    world.mover.stopMove();
    EXPECT_EQ(world.moveMessages().error, "Mail refused the move.");
}

TEST(MoveMessages, TellsTheProgressEveryHalfSecond) {
    MoverWorld world;
    std::string progressFile;
    world.processes.setScript([&](const Launch& launch) {
        progressFile = BulkArguments(launch.arguments).progress;
        return Reply{.output = "3|3|false|false", .polls = 8};
    });
    const char* const records[] = {"move|1|3", "move|2",       "move|x|3", "mov",
                                   "",         "move|2|3\xE2", "move|2|3"};
    world.passing.meanwhile = [&](int sleep) {
        if (sleep <= 7) files::write(progressFile, records[sleep - 1]);
    };
    EXPECT_EQ(world.moveMessages().moved, 3);
    EXPECT_EQ(world.steps, (std::vector<Step>{{scan, 0, 0}, {move, 1, 3}, {move, 2, 3}}));
    EXPECT_EQ(world.passing.sleeps, std::vector<double>(8, 0.5));
}

TEST(MoveMessages, TellsAnUnchangedProgressAgain) {
    MoverWorld world;
    world.processes.setScript([](const Launch&) { return Reply{.output = "0", .polls = 3}; });
    world.moveMessages();
    EXPECT_EQ(world.steps, std::vector<Step>(3, {scan, 0, 0}));
}

TEST(MoveMessages, AProgressFileThatIsGoneIsPassedOver) {
    MoverWorld world;
    world.processes.setScript([](const Launch& launch) {
        files::remove(BulkArguments(launch.arguments).progress);
        files::remove(BulkArguments(launch.arguments).done);
        return Reply{.output = "3|3|false|false", .polls = 2};
    });
    EXPECT_EQ(world.moveMessages(), (MoveOutcome{3, {}, {}}));
    EXPECT_TRUE(world.steps.empty());
}

TEST(MoveMessages, FilesThatCannotBeWrittenAreTheScriptsToReport) {
    MoverWorld world;
    world.directories.clear();
    world.processes.setScript([](const Launch& launch) {
        EXPECT_FALSE(files::exists(BulkArguments(launch.arguments).ids));
        return Reply{.error = "execution error: File not found. (-43)"};
    });
    EXPECT_EQ(world.moveMessages(), (MoveOutcome{0, {}, "File not found. (-43)"}));
}

}  // namespace
}  // namespace brindlet
