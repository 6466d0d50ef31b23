#include "mover/MoverWorld.h"

namespace brindlet {
namespace {

using Reply = MoverWorld::Reply;
constexpr auto permission =
    "Moving Gmail mail needs one permission: switch Brindlet on under Privacy & Security > "
    "Accessibility, then try again.";

Mover::ScriptOutput run(MoverWorld& world, const Reply& reply) {
    world.processes.setScript([=](const auto&) { return reply; });
    return world.mover.runScript("script", {});
}

TEST(RunScript, SendsTheScriptByStandardInputAndTheArgumentsBehindADash) {
    MoverWorld world;
    const std::string script = "return \"«class ü»\"\n";
    world.mover.runScript(script, {"a b", "", "-x"});
    const auto launches = world.processes.launches();
    ASSERT_EQ(launches.size(), 1u);
    EXPECT_EQ(launches[0].arguments,
              (std::vector<std::string>{"/doubles/osascript", "-", "a b", "", "-x"}));
    EXPECT_EQ(launches[0].input, script);
}

TEST(RunScript, GivesTheOutputAsItStands) {
    MoverWorld world;
    for (const auto& [bytes, text] :
         {std::pair{" 5|0|\n", " 5|0|\n"}, {"a\xC0\xAFz", "a\uFFFD\uFFFDz"}, {"", ""}}) {
        const auto output = run(world, {.output = bytes});
        EXPECT_EQ(output.output, text);
        EXPECT_EQ(output.error, std::nullopt) << text;
    }
}

TEST(RunScript, DoesNotLookAtTheStatus) {
    MoverWorld world;
    const auto output = run(world, {.output = "fine", .status = 1});
    EXPECT_EQ(output.output, "fine");
    EXPECT_EQ(output.error, std::nullopt);
}

TEST(RunScript, ThatCannotStartSaysSo) {
    MoverWorld world;
    world.processes.setStarts(false);
    const auto output = run(world, {.output = "never"});
    EXPECT_EQ(output.output, "");
    EXPECT_EQ(output.error, "Couldn't start AppleScript.");
}

TEST(RunScript, OutputBeatsAnErrorText) {
    MoverWorld world;
    for (const auto* text : {"fine", "\n"}) {
        const auto output = run(world, {.output = text, .error = "execution error: no (-2700)"});
        EXPECT_EQ(output.output, text);
        EXPECT_EQ(output.error, std::nullopt);
    }
}

TEST(RunScript, AMissingPermissionBeatsEvenOutput) {
    for (const auto* error :
         {"osascript is not allowed assistive access. (-1728)", "not authorized to send events",
          "error -25211", "first line (-1719)\nlast line"}) {
        SCOPED_TRACE(error);
        MoverWorld world;
        for (const auto* text : {"", "5|2|a@x"}) {
            const auto output = run(world, {.output = text, .error = error});
            EXPECT_EQ(output.output, text);
            EXPECT_EQ(output.error, permission);
        }
    }
    MoverWorld world;
    EXPECT_EQ(run(world, {.error = "Not Authorized"}).error, "Not Authorized") << "minds the case";
}

TEST(RunScript, ShowsTheLastLineOfTheErrorText) {
    const struct {
        const char* error;
        const char* shown;
    } rows[] = {
        {"12:34: execution error: Mail has no account for x (-2700)\n",
         "12:34: Mail has no account for x (-2700)"},
        {"first\nlast\n\n\n", "last"},
        {"execution error: execution error: twice", "twice"},
        {"execution error: Can't get it. (-1728)", "Can't get it. (-1728)"},
        {"  spaces stay\t", "  spaces stay\t"},
        {"real\n \n", " "},
        {"a\xC0z", "a\uFFFDz"},
        {"\n\n", "Mail refused."},
        {"execution error: ", ""},
    };
    for (const auto& row : rows) {
        MoverWorld world;
        const auto output = run(world, {.error = row.error, .status = 1});
        EXPECT_EQ(output.output, "") << row.error;
        EXPECT_EQ(output.error, row.shown) << row.error;
    }
}

TEST(StopMove, WhenNothingRunsDoesNothing) {
    MoverWorld world;
    world.mover.stopMove();
    run(world, {.output = "fine"});
    world.mover.stopMove();
    world.processes.setStarts(false);
    run(world, {});
    world.mover.stopMove();
    world.processes.setStarts(true);
    world.moveMessages();
    world.moveByMenu();
    world.mover.stopMove();
    EXPECT_EQ(world.processes.terminations(), 0) << "each run is let go of on every way out";
}

TEST(StopMove, TerminatesWhatRuns) {
    MoverWorld world;
    world.processes.setScript([&](const auto&) {
        world.mover.stopMove();
        return Reply{};
    });
    const auto output = world.mover.runScript("script", {});
    EXPECT_EQ(world.processes.terminations(), 1);
    EXPECT_EQ(output.output, "");
    EXPECT_EQ(output.error, std::nullopt) << "whether a stop is an error is the caller's to say";
}

}  // namespace
}  // namespace brindlet
