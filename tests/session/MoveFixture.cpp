#include "session/MoveFixture.h"

#include <algorithm>

#include "base/Files.h"

namespace brindlet {
namespace {

// Places in the bulk script's command line.
constexpr std::size_t addressPlace = 2;
constexpr std::size_t idFilePlace = 5;
constexpr std::size_t doneFilePlace = 7;

std::vector<std::string> askedFor(const std::string& idFile) {
    std::vector<std::string> ids;
    const auto text = files::read(idFile).value_or("");
    std::size_t at = 0;
    while (at < text.size()) {
        const auto tab = text.find('\t', at);
        const auto end = std::min(text.find('\n', at), text.size());
        ids.push_back(text.substr(tab + 1, end - tab - 1));
        at = end + 1;
    }
    return ids;
}

}  // namespace

MoveTest::MoveTest() {
    script({});
}

MoveTest::~MoveTest() {
    world.processes.release();
    world.mainQueue.end();
    if (state->moveTask()) state->moveTask()->wait();
    world.processes.setScript([](const auto&) { return doubles::ScriptedProcessRunner::Reply{}; });
}

void MoveTest::script(Bulk bulk) {
    world.processes.setScript([bulk = std::move(bulk)](const auto& run) {
        doubles::ScriptedProcessRunner::Reply reply;
        if (run.arguments.size() <= doneFilePlace) return reply;  // a listing: Mail says nothing
        const auto ids = bulk.some ? bulk.landed : askedFor(run.arguments[idFilePlace]);
        std::string done;
        for (const auto& id : ids) done += id + "\n";
        files::write(run.arguments[doneFilePlace], done);
        reply.error = bulk.error;
        if (bulk.error.empty())
            reply.output =
                std::to_string(bulk.moved < 0 ? std::ssize(ids) : bulk.moved) + "|7|false|false\n";
        return reply;
    });
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
