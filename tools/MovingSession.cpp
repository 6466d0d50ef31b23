#include "MovingSession.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "base/Json.h"

namespace brindlet::tools {
namespace {

void print(JsonWriter&& line) {
    std::puts(std::move(line).text().c_str());
    std::fflush(stdout);
}

}  // namespace

MovingSession::MovingSession(RunLoop& loop, std::shared_ptr<AppState> state, MoveOrder order)
    : loop_(loop), state_(std::move(state)), order_(std::move(order)) {}

std::string MovingSession::run() {
    // The signal comes before the change: what changes next was told as it stood, and what has
    // changed last is told by the job.
    watch_ = state_->subscribe([this] {
        tellStage();
        loop_.post([this] { look(); });
    });
    state_->loadAccounts(true);
    loop_.run();
    watch_ = {};
    state_->drainWrites();
    return problem_;
}

void MovingSession::look() {
    tellStage();
    if (order_.stopAfter && !stopped_ && *state_->moving &&
        *state_->movedCount >= *order_.stopAfter) {
        stopped_ = true;
        state_->mover().stopMove();
    }
    if (begun_ || *state_->loadingAccounts) return;
    begun_ = true;
    begin();
}

void MovingSession::begin() {
    switch (order_.what) {
        case MoveOrder::What::move:
            return move();
        case MoveOrder::What::resume:
            return resume();
        case MoveOrder::What::putBack:
            return putBack();
    }
}

const MailAccount* MovingSession::account() const {
    const auto& all = *state_->accounts;
    const auto found = std::find_if(all.begin(), all.end(), [&](const MailAccount& each) {
        return each.id == order_.accountId;
    });
    return found == all.end() ? nullptr : &*found;
}

void MovingSession::move() {
    const auto* const from = account();
    if (!from) return end("There is no such account.");
    const MailAccount chosen = *from;
    const auto folder =
        std::find_if(chosen.folders.begin(), chosen.folders.end(),
                     [&](const MailFolder& candidate) { return candidate.name == order_.mailbox; });
    if (folder == chosen.folders.end()) return end("There is no such mailbox.");
    state_->startScan(chosen, *folder);
    then(*state_->scanTask(), [this] {
        if (*state_->scanError) return end(**state_->scanError);
        // So that the record of the scan is whole, whatever becomes of the move.
        state_->drainWrites();
        order_.ready();
        state_->startMove();
        // The tools have no safe for passwords: they answer the question about Gmail with "Not now".
        if (const auto asked = *state_->askingGmail) state_->gmailDeclined(*asked);
        awaitMove();
    });
}

void MovingSession::resume() {
    order_.ready();
    state_->resumeMove();
    awaitMove();
}

void MovingSession::putBack() {
    const auto* const from = account();
    if (!from) return end("There is no such account.");
    const auto& records = *state_->history.records;
    const auto record = std::find_if(records.begin(), records.end(), [&](const ScanRecord& each) {
        return each.account == from->displayLabel() && each.folder == order_.mailbox;
    });
    if (record == records.end()) return end("No scan of this mailbox is on record.");
    // It brings along where the messages went, and which they are.
    state_->openRecord(*record);
    AppState::Ids all;
    for (const auto position : state_->movedVerdicts())
        all.insert((*state_->verdicts)[position].id);
    state_->putBack.set(all);
    order_.ready();
    state_->putBackMoved();
    awaitMove();
}

void MovingSession::awaitMove() {
    // Without one there was nothing to move, or something against it.
    if (!state_->moveTask()) return end();
    then(*state_->moveTask(), [this] {
        if (!state_->persistTask()) return end();
        then(*state_->persistTask(), [this] { end(); });
    });
}

void MovingSession::then(const Task& task, std::function<void()> next) {
    runDetached(TaskPriority::utility, [&loop = loop_, task, next = std::move(next)]() mutable {
        task.wait();
        loop.post(std::move(next));
    });
}

void MovingSession::end(std::string problem) {
    problem_ = std::move(problem);
    tellStage();
    if (problem_.empty()) {
        tellEnd();
        if (*state_->moveError) problem_ = **state_->moveError;
    }
    loop_.stop();
}

void MovingSession::tellStage() {
    const auto& stage = *state_->moveStage;
    if (stage == toldStage_ && *state_->movedCount == toldCount_) return;
    toldStage_ = stage;
    toldCount_ = *state_->movedCount;
    JsonWriter line;
    line.beginObject();
    line.member("moveStage", stage);
    line.member("movedCount", toldCount_);
    line.member("moveTotal", *state_->moveTotal);
    line.endObject();
    print(std::move(line));
}

void MovingSession::tellEnd() const {
    JsonWriter line;
    line.beginObject();
    line.member("movedCount", *state_->movedCount);
    line.member("moveNote", *state_->moveNote);
    line.key("moveError");
    if (*state_->moveError)
        line.value(**state_->moveError);
    else
        line.null();
    line.key("pending");
    if (const auto& pending = *state_->interrupted.pending) {
        line.beginObject();
        line.member("destination", pending->destination);
        line.member("done", pending->done);
        line.key("remaining");
        line.beginArray();
        for (const auto& item : pending->remaining) line.value(item.messageID);
        line.endArray();
        line.endObject();
    } else {
        line.null();
    }
    line.member("movedAlready", static_cast<std::int64_t>(state_->movedAlready->size()));
    line.endObject();
    print(std::move(line));
}

}  // namespace brindlet::tools
