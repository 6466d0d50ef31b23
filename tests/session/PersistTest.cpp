#include <gtest/gtest.h>

#include "base/Files.h"
#include "session/ReviewFixture.h"

#if defined(__linux__)
#include <sys/inotify.h>
#include <unistd.h>
#endif

namespace brindlet {
namespace {

/// Saving the ticks of the scan on show.
class Persist : public ReviewTest {
  protected:
    std::string scans() const { return world.directories.store() + "/scans"; }
    std::string path() const { return scans() + "/1700000000.json"; }
    std::vector<std::optional<bool>> saved() const {
        std::vector<std::optional<bool>> approved;
        const auto messages = state->history.readScan(state->currentRecord->started);
        if (messages)
            for (const auto& message : *messages) approved.push_back(message.approved);
        return approved;
    }
    using Approved = std::vector<std::optional<bool>>;
};

#if defined(__linux__)
/// Counts how often files of a folder were written and closed.
class WriteCount {
  public:
    explicit WriteCount(const std::string& directory)
        : queue_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
        EXPECT_GE(::inotify_add_watch(queue_, directory.c_str(), IN_CLOSE_WRITE), 0);
    }
    ~WriteCount() { ::close(queue_); }
    WriteCount(const WriteCount&) = delete;
    WriteCount& operator=(const WriteCount&) = delete;

    int take() {
        alignas(inotify_event) char events[16 * 1024];
        int count = 0;
        const auto size = ::read(queue_, events, sizeof events);
        for (ssize_t at = 0; at < size;) {
            const auto* event = reinterpret_cast<const inotify_event*>(events + at);
            at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
            ++count;
        }
        return count;
    }

  private:
    int queue_;
};

TEST_F(Persist, BurstOfTicksCostsOneWriteOfTheScanFile) {
    addVerdicts(20, "Shop Team", "News");
    showRecorded();
    WriteCount writes(scans());
    for (std::int64_t id = 1; id <= 20; ++id) state->toggleMessage(id);
    world.clock.waitForSleeps(20);
    world.clock.advance(0.59);
    state->drainWrites();
    EXPECT_EQ(writes.take(), 0);
    settle();
    EXPECT_EQ(writes.take(), 1);
    EXPECT_EQ(saved(), Approved(20, false));
    world.clock.advance(60);
    state->drainWrites();
    EXPECT_EQ(writes.take(), 0);

    state->toggleMessage(3);
    settle();
    EXPECT_EQ(writes.take(), 1) << "what comes later costs one more";
}
#endif

TEST_F(Persist, EachWayOfTickingIsSaved) {
    addVerdicts(2, "a@x.example", "News");
    showRecorded();
    state->setCategoryTicked(Category::newsletterOrDigest, false);
    settle();
    EXPECT_EQ(saved(), (Approved{false, false}));
    state->undoSweep();
    settle();
    EXPECT_EQ(saved(), (Approved{true, true}));
    state->setMessagesTicked({2}, false, true);
    settle();
    EXPECT_EQ(saved(), (Approved{true, false}));
    state->toggleMessage(2);
    settle();
    EXPECT_EQ(saved(), (Approved{true, true}));
    state->toggleMessage(1);
    state->applyPendingRule(**state->pending, true, SweepChoice::everything);
    settle();
    EXPECT_EQ(saved(), (Approved{false, false}));
}

TEST_F(Persist, SavesWhatWasTickedWhenItWasAsked) {
    addVerdicts(3, "a@x.example", "News");
    showRecorded();
    state->approved.set({1});
    state->persistSoon();
    state->approved.set({2});
    state->verdicts.set({});
    settle();
    EXPECT_EQ(saved(), (Approved{true, false, false}));
}

TEST_F(Persist, LeavesMessagesThatAreNotOnShow) {
    addVerdicts(3, "a@x.example", "News");
    showRecorded();
    list.pop_back();
    state->verdicts.set(VerdictList(list));
    state->approved.set({});
    state->persistSoon();
    settle();
    EXPECT_EQ(saved(), (Approved{false, false, true}));
}

TEST_F(Persist, CreatesNoFileWhereThereIsNone) {
    addVerdicts(2, "a@x.example", "News");
    showRecorded();
    files::remove(path());
    state->toggleMessage(1);
    settle();
    EXPECT_FALSE(files::exists(path()));
}

TEST_F(Persist, LeavesADamagedFileAsItIs) {
    addVerdicts(2, "a@x.example", "News");
    showRecorded();
    const auto whole = files::read(path()).value();
    for (const auto& damaged :
         {std::string(), whole.substr(0, whole.size() / 2), "[1," + whole.substr(1), whole + "x"}) {
        files::write(path(), damaged);
        state->toggleMessage(1);
        settle();
        EXPECT_EQ(files::read(path()), damaged);
    }
}

TEST_F(Persist, OutlivesTheSession) {
    addVerdicts(2, "a@x.example", "News");
    showRecorded();
    state->toggleMessage(1);
    finishSearch();
    const Task save = *state->persistTask();
    const auto started = state->currentRecord->started;
    state.reset();
    while (!save.finished()) world.clock.advance(0.6);
    const History history(world.services());
    EXPECT_TRUE(world.mainQueue.pumpUntil([&] {
        const auto messages = history.readScan(started);
        return messages && (*messages)[0].approved == false && (*messages)[1].approved == true;
    }));
}

}  // namespace
}  // namespace brindlet
