#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>

#include "ScriptHome.h"
#include "base/Files.h"
#include "sample/MailSettings.h"

// How the stand-in behaves towards whoever starts it.

namespace brindlet::osascript {
namespace {

TEST(ScriptHost, PrintsTheResultWithALineFeed) {
    ScriptHome home;
    home.finish();
    const auto run = home.script("on run argv\nreturn item 2 of argv\nend run", {"a", "b c\n"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.output, "b c\n\n");
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(home.script("set x to 1", {}).output, "");
}

TEST(ScriptHost, AFinalLineFeedOfTheScriptDoesNotMatter) {
    ScriptHome home;
    home.finish();
    EXPECT_EQ(home.script("return 1\n", {}).output, "1\n");
    EXPECT_EQ(home.script("return 1", {}).output, "1\n");
}

TEST(ScriptHost, AnErrorIsOneLineWithItsPlace) {
    ScriptHome home;
    home.finish();
    const auto run = home.script("error \"Mail has no folder X\"", {});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, "0:28: execution error: Mail has no folder X (-2700)\n");
}

TEST(ScriptHost, AScriptThatIsNotUnderstoodDoesNotRun) {
    ScriptHome home;
    home.finish();
    const auto run = home.script("tell application \"Mail\" to frobnicate 1", {});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors, "38:39: syntax error: Expected end of line but found a value. (-2741)\n");
}

TEST(ScriptHost, AScriptOfBadBytesIsRepaired) {
    ScriptHome home;
    home.finish();
    EXPECT_EQ(home.script("return \"a\xff\"", {}).output, "a\xef\xbf\xbd\n");
}

TEST(ScriptHost, WrongUseIsTold) {
    ScriptHome home;
    home.finish();
    const auto run =
        ScriptChild(home.directories.temporary(), home.home.home(), {"file.scpt"}, "").wait();
    EXPECT_EQ(run.status, 2);
    EXPECT_NE(run.errors, "");
}

TEST(ScriptHost, WithoutAHomeNoMailProgramRuns) {
    const doubles::TemporaryDirectories directories;
    const auto run = ScriptChild(directories.temporary(), directories.home(),
                                 {"-e", "tell application \"Mail\" to activate"}, "")
                         .wait();
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.errors, "0:23: execution error: Application “Mail” isn’t running. (-600)\n");
}

TEST(ScriptHost, DamagedSettingsAreNoHome) {
    ScriptHome home;
    home.finish();
    files::write(sample::mailSettingsPath(home.home.home()), "{\"behavior\":{}}");
    EXPECT_EQ(home.listing("list-mailbox-names.applescript").status, 1);
}

TEST(ScriptHost, ASignalEndsIt) {
    ScriptHome home;
    const std::string fifo = home.directories.temporary() + "/gate";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    home.behaviour().gate = {fifo, 0, 3};
    home.finish();
    ScriptChild child(home.directories.temporary(), home.home.home(),
                      home.bulkArguments(home.rows(5), {}), moveScript("bulk-move.applescript"));
    const Opening gate(fifo, child);
    child.send(SIGTERM);
    const auto outcome = home.bulkOutcome(child.wait());
    EXPECT_EQ(outcome.run.signal, SIGTERM);
    EXPECT_EQ(outcome.run.output, "");
    EXPECT_EQ(outcome.run.errors, "");
    EXPECT_EQ(outcome.done.size(), 2u);
    EXPECT_EQ(home.countIn(ScriptHome::work, "Junk"), 3u);
    EXPECT_EQ(home.disagreement(), "");
}

}  // namespace
}  // namespace brindlet::osascript
