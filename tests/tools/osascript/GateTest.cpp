#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>

#include <memory>

#include "ScriptHome.h"

namespace brindlet::osascript {
namespace {

struct Gate : ::testing::Test {
    void SetUp() override { ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0); }

    /// The bulk script as a process that waits at the gate.
    std::unique_ptr<ScriptChild> start(int messages) {
        return std::make_unique<ScriptChild>(home.directories.temporary(), home.home.home(),
                                             home.bulkArguments(home.rows(messages), {}),
                                             moveScript("bulk-move.applescript"));
    }

    ScriptHome home;
    const std::string fifo = home.directories.temporary() + "/gate";
};

TEST_F(Gate, StopsBeforeAMoveUntilItIsOpened) {
    home.behaviour().gate = {fifo, 0, 3};
    home.finish();
    const auto child = start(5);
    {
        const Opening gate(fifo, *child);
        EXPECT_EQ(home.countIn(ScriptHome::work, "Junk"), 3u);
        EXPECT_EQ(home.bulkOutcome({}).done.size(), 2u);
    }
    EXPECT_EQ(child->wait().output, "5|6|false|false\n");
}

TEST_F(Gate, StopsBeforeAnEvent) {
    // Five requests find the account and its folders; the sixth looks up the first message.
    home.behaviour().gate = {fifo, 6, 0};
    home.finish();
    const auto child = start(2);
    {
        const Opening gate(fifo, *child);
        EXPECT_EQ(home.countIn(ScriptHome::work, "INBOX"), 25u);
    }
    EXPECT_EQ(child->wait().output, "2|3|false|false\n");
}

TEST_F(Gate, AKilledHostLeavesEveryMessageInOnePlace) {
    for (int boundary = 1; boundary <= 5; ++boundary) {
        SCOPED_TRACE(boundary);
        ScriptHome other;
        other.behaviour().gate = {fifo, 0, boundary};
        other.finish();
        ScriptChild child(other.directories.temporary(), other.home.home(),
                          other.bulkArguments(other.rows(5), {}),
                          moveScript("bulk-move.applescript"));
        const Opening gate(fifo, child);
        child.send(SIGKILL);
        EXPECT_EQ(child.wait().signal, SIGKILL);
        const auto moved = static_cast<std::size_t>(boundary - 1);
        EXPECT_EQ(other.bulkOutcome({}).done.size(), moved);
        EXPECT_EQ(other.countIn(ScriptHome::work, "INBOX"), 25 - moved);
        EXPECT_EQ(other.countIn(ScriptHome::work, "Junk"), 1 + moved);
        EXPECT_EQ(other.disagreement(), "");
    }
}

TEST_F(Gate, AGateThatIsNotThereIsOpen) {
    home.behaviour().gate = {fifo + "-gone", 1, 1};
    home.finish();
    EXPECT_EQ(start(2)->wait().output, "2|3|false|false\n");
}

}  // namespace
}  // namespace brindlet::osascript
