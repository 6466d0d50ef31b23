#include "session/AutomaticFixture.h"

#include <algorithm>
#include <thread>

namespace brindlet {

AutomaticTest::AutomaticTest() {
    MailAccount ann = account();
    ann.address = "ann@x.example";
    ann.folders.clear();
    state->accounts.set({ann});
    state->schedule.setCadence(Cadence::hourly);
    state->schedule.setEnabled(true);
    answerBySubject({{"Sale", "advertisingOrPromotion"}});
}

AutomaticTest::~AutomaticTest() {
    world.model.release();
    world.processes.release();
    world.mainQueue.end();
    world.clock.advance(300);  // whoever sleeps finds the loop gone
    if (state && state->automaticTask()) {
        state->automaticTask()->cancel();
        state->automaticTask()->wait();
    }
}

MailFolder AutomaticTest::addBox(const std::string& name, int junk, MailFolder::Role boxRole) {
    MailFolder box;
    box.id = home.addMailbox(name);
    box.name = name;
    box.count = junk;
    box.role = boxRole;
    state->accounts.mutate([&](auto& accounts) { accounts.front().folders.push_back(box); });
    addJunk(box, junk);
    return box;
}

MailFolder AutomaticTest::watch(const std::string& name, int junk, MailFolder::Role boxRole) {
    state->schedule.toggle(owner().id, name);
    return addBox(name, junk, boxRole);
}

void AutomaticTest::addJunk(const MailFolder& box, int count) {
    mailbox = box.id;
    for (int i = 0; i < count; ++i)
        add("shop" + std::to_string(++senders_) + "@x.example", "Sale " + box.name);
}

void AutomaticTest::startTimer() {
    const auto before = timerSleeps();
    state->startTimer();
    while (timerSleeps() == before) std::this_thread::yield();
}

void AutomaticTest::pass(double seconds) {
    const auto before = timerSleeps();
    const bool running = state->automaticRunning();
    world.clock.advance(seconds);
    while (timerSleeps() == before) {
        // A run that has just begun gets no further.
        const bool begun = !running && state->automaticRunning();
        if (begun || world.mainQueue.tryOne() == 0) std::this_thread::yield();
    }
}

void AutomaticTest::finishRun() {
    ASSERT_TRUE(state->automaticTask());
    ASSERT_TRUE(pumpUntil([&] { return !state->automaticRunning(); }));
    state->drainWrites();
}

void AutomaticTest::runNow() {
    state->runDue();
    finishRun();
}

void AutomaticTest::runJobs(int count) {
    while (count > 0)
        if (world.mainQueue.tryOne() > 0)
            --count;
        else
            std::this_thread::yield();
}

std::vector<std::string> AutomaticTest::scanned() const {
    std::vector<std::string> folders;
    for (const auto& record : *state->history.records) folders.push_back(record.folder);
    std::reverse(folders.begin(), folders.end());
    return folders;
}

std::size_t AutomaticTest::moves() const {
    return world.processes.launches().size();
}

std::ptrdiff_t AutomaticTest::timerSleeps() const {
    const auto sleeps = world.clock.sleeps();
    return std::count(sleeps.begin(), sleeps.end(), 300.0);
}

}  // namespace brindlet
