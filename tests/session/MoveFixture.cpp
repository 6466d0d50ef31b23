#include "session/MoveFixture.h"

#include <utility>

namespace brindlet {
namespace {

/// Where the account's address stands in the bulk script's command line.
constexpr std::size_t addressPlace = 2;

}  // namespace

MoveTest::MoveTest() {
    script({});
}

MoveTest::~MoveTest() {
    world.processes.release();
    world.mainQueue.end();
    if (state && state->moveTask()) state->moveTask()->wait();
    world.processes.setScript([](const auto&) { return doubles::ScriptedProcessRunner::Reply{}; });
}

void MoveTest::script(Bulk bulk) {
    world.processes.setScript(doubles::bulkScript(std::move(bulk)));
}

void MoveTest::selectAccount(const std::string& address, std::vector<MailFolder> folders) {
    MailAccount chosen = account();
    chosen.address = address;
    chosen.folders = std::move(folders);
    state->accounts.set({chosen});
    state->account.set(chosen);
}

void MoveTest::showAds(int count, MailFolder::Role folderRole) {
    for (int i = 0; i < count; ++i)
        addVerdict("shop" + std::to_string(i) + "@x.example", "Sale",
                   Category::advertisingOrPromotion);
    showRecorded(folderRole);
    selectAccount("ann@x.example", {inbox()});
    state->currentRecord->account = "ann@x.example";
    state->history.records.mutate([](auto& records) { records[0].account = "ann@x.example"; });
}

void MoveTest::finishMove() {
    ASSERT_TRUE(state->moveTask());
    finish(*state->moveTask());
}

void MoveTest::finish(const Task& task) {
    // The poll may not have gone to sleep yet, so that the time passes again and again.
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] {
        world.clock.advance(0.5);
        return task.finished();
    }));
    world.mainQueue.pump();
}

std::vector<std::string> MoveTest::lastArguments() const {
    const auto runs = world.processes.launches();
    if (runs.empty()) return {};
    const auto& arguments = runs.back().arguments;
    return {arguments.begin() + addressPlace, arguments.end()};
}

std::vector<std::int64_t> MoveTest::remainingIds() const {
    std::vector<std::int64_t> ids;
    for (const auto position : state->remainingVerdicts())
        ids.push_back((*state->verdicts)[position].id);
    return ids;
}

const Seen::Entry* MoveTest::seenEntry(const std::string& messageID) {
    entries_ = state->seen.entries();
    for (const auto& [id, entry] : entries_)
        if (id == messageID) return &entry;
    return nullptr;
}

}  // namespace brindlet
