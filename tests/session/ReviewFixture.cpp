#include "session/ReviewFixture.h"

#include <thread>

namespace brindlet {

ReviewTest::ReviewTest() {
    // Nothing is of a kind unless a test says so.
    world.model.setScript([](const auto&) { return std::nullopt; });
    open();
}

ReviewTest::~ReviewTest() {
    world.model.release();
    world.mainQueue.end();
    if (!state) return;
    if (state->kindTask()) state->kindTask()->wait();
}

Verdict& ReviewTest::addVerdict(const std::string& sender, const std::string& subject,
                                Category category) {
    Verdict verdict;
    verdict.id = std::ssize(list) + 1;
    verdict.messageID = std::to_string(verdict.id) + "@example";
    verdict.sender = sender;
    verdict.subject = subject;
    verdict.category = category;
    verdict.isJunk = isDefaultJunk(category);
    return list.emplace_back(std::move(verdict));
}

void ReviewTest::addVerdicts(int count, const std::string& sender, const std::string& subject) {
    for (int i = 0; i < count; ++i) addVerdict(sender, subject);
}

void ReviewTest::show(MailFolder::Role folderRole) {
    role = folderRole;
    state->account.set(account());
    state->folder.set(inbox());
    state->verdicts.set(VerdictList(list));
    AppState::Ids proposed;
    for (const auto& verdict : list)
        if (verdict.messageID && verdict.isJunk != state->isJunkFolder())
            proposed.insert(verdict.id);
    state->approved.set(proposed);
}

void ReviewTest::showRecorded(MailFolder::Role folderRole) {
    show(folderRole);
    ScanRecord record;
    record.started = world.clock.now();
    record.account = account().displayLabel();
    record.folder = inbox().name;
    record.scanned = std::ssize(list);
    state->history.add(record);
    state->currentRecord = record;
    std::vector<ScanRecord::Saved> saved;
    for (const auto& verdict : list) saved.push_back(savedFrom(verdict, ticked(verdict.id)));
    state->history.writeScan(saved, record.started);
}

void ReviewTest::finishSearch() {
    ASSERT_TRUE(state->kindTask());
    ASSERT_TRUE(world.mainQueue.pumpUntil([this] { return state->kindTask()->finished(); }));
    world.mainQueue.pump();
}

void ReviewTest::settle() {
    // The task may not have gone to sleep yet, so that the time passes again and again.
    while (state->persistTask() && !state->persistTask()->finished()) {
        world.clock.advance(0.6);
        std::this_thread::yield();
    }
    state->drainWrites();
}

ScanRecord::Saved savedFrom(const Verdict& verdict, std::optional<bool> approved) {
    return {verdict.id,
            verdict.messageID,
            verdict.sender,
            verdict.subject,
            std::string(rawValue(verdict.category)),
            verdict.isJunk,
            verdict.vetoed,
            approved};
}

}  // namespace brindlet
