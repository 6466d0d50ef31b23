#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <thread>

#include "base/Files.h"
#include "session/NaiveReview.h"
#include "session/ReviewFixture.h"

namespace brindlet {
namespace {

using Ids = AppState::Ids;

/// Random ticks, sweeps, offers and undos over random scans, beside a naive model of the same.
class ReviewProperty : public ReviewTest {
  protected:
    std::size_t below(std::size_t bound) { return random() % bound; }
    bool chance(std::size_t percent) { return below(100) < percent; }
    template <class List>
    const auto& pick(const List& choices) {
        return choices[below(std::size(choices))];
    }

    void inventScan() {
        static const std::string senders[] = {"Ann <ann@x.example>", "n1@x.example",
                                              "Bob <n2@x.example>", "Shop Team",
                                              "News <news9@shop.example>"};
        static const std::string shapes[] = {"Parcel left depot ", "Weekly report ready ",
                                             "Ann wrote you ", "Alone", ""};
        static const Category categories[] = {Category::newsletterOrDigest, Category::billOrPayment,
                                              Category::socialMediaBlast};
        list.clear();
        moved.clear();
        const auto most = 1 + below(3);  // so that some scans have one sender or category only
        for (auto count = 1 + below(12); count > 0; --count) {
            auto& verdict =
                addVerdict(senders[below(most)], pick(shapes) + std::to_string(below(9)),
                           categories[below(most)]);
            verdict.isJunk = chance(50);
            if (chance(15)) verdict.messageID.reset();
            if (verdict.messageID && chance(10)) moved.insert(*verdict.messageID);
        }
        std::shuffle(list.begin(), list.end(), random);
    }
    /// Shows it as a scan that has just ended, but for what was moved since.
    void showScan() {
        state->rules.all.set({});
        state->rules.session.set({});
        state->calibration.byCategory.set({});
        state->families.clear();
        state->touched.set({});
        state->touchedSet.clear();
        state->learned.set(0);
        state->pending.set(std::nullopt);
        state->lastSweep.set(std::nullopt);
        show(chance(50) ? MailFolder::Role::junk : MailFolder::Role::inbox);
        state->movedAlready.set(moved);
        state->approved.mutate([&](Ids& ids) {
            for (const auto& verdict : list)
                if (verdict.messageID && moved.contains(*verdict.messageID)) ids.erase(verdict.id);
        });
        naive.emplace(list, state->isJunkFolder(),
                      std::set<std::int64_t>(state->approved->begin(), state->approved->end()));
    }
    Numbers someIds() {
        Numbers ids;
        for (const auto& verdict : list)
            if (chance(40)) ids.push_back(verdict.id);
        if (chance(10)) ids.push_back(99);
        std::shuffle(ids.begin(), ids.end(), random);
        return ids;
    }
    /// One sweep, or none when nothing is on offer.
    void sweepSomehow() {
        const bool tick = chance(50), learn = chance(50);
        if (*state->pending && chance(60)) {
            const auto choice = pick(allChoices);
            state->applyPendingRule(**state->pending, learn, choice);
            naive->applyOffer(learn, choice);
        } else if (chance(40)) {
            const auto category = pick(list).category;
            state->setCategoryTicked(category, tick);
            naive->setCategory(category, tick);
        } else {
            const auto ids = someIds();
            state->setMessagesTicked(ids, tick, learn);
            naive->setMessages(ids, tick, learn);
        }
    }
    void undo() {
        state->undoSweep();
        naive->undo();
    }
    void step() {
        const auto kind = below(10);
        if (kind < 5) {
            // Screens let nobody tick a message without a Message-ID.
            const auto& verdict = pick(list);
            if (!verdict.messageID) return;
            state->toggleMessage(verdict.id);
            naive->toggle(verdict.id);
        } else if (kind < 8) {
            const Ids before = *state->approved;
            sweepSomehow();
            if (!chance(30)) return;
            undo();
            EXPECT_EQ(*state->approved, before) << "undone at once";
        } else if (kind < 9) {
            undo();
        } else {
            state->dismissPending();
            naive->offer.reset();
        }
    }
    static std::vector<Rule> undated(std::vector<Rule> rules) {
        for (auto& rule : rules) rule.created = {};
        return rules;
    }
    void compare() {
        EXPECT_EQ(Numbers(state->approved->begin(), state->approved->end()),
                  Numbers(naive->ticked.begin(), naive->ticked.end()));
        for (const auto& verdict : list)
            EXPECT_FALSE(!verdict.messageID && ticked(verdict.id)) << verdict.id;
        EXPECT_EQ(*state->pending, naive->offer);
        auto sweep = *state->lastSweep;
        if (sweep && sweep->learned) sweep->learned->created = {};
        EXPECT_EQ(sweep, naive->lastSweep);
        EXPECT_EQ(undated(*state->rules.all), naive->lasting);
        EXPECT_EQ(undated(*state->rules.session), naive->ofSession);
        EXPECT_EQ(*state->calibration.byCategory, naive->tallies);
        EXPECT_EQ(*state->learned, naive->learned);
        EXPECT_EQ(*state->touched, naive->touched);
    }
    void endSearch() {
        while (state->kindTask() && !state->kindTask()->finished()) {
            if (world.mainQueue.tryOne() == 0) std::this_thread::yield();
        }
        world.mainQueue.pump();
    }

    static constexpr SweepChoice allChoices[] = {SweepChoice::members, SweepChoice::kin,
                                                 SweepChoice::everything};
    std::mt19937 random{1};
    std::unordered_set<std::string> moved;
    std::optional<NaiveReview> naive;
};

TEST_F(ReviewProperty, DoesWhatTheNaiveModelDoes) {
    // Nothing can be saved here, which changes nothing of what is in memory.
    files::write(world.directories.root() + "/file", "");
    world.directories.setStore(world.directories.root() + "/file/store");
    open();
    for (int sequence = 0; sequence < 10'000; ++sequence) {
        SCOPED_TRACE(sequence);
        inventScan();
        showScan();
        for (auto steps = 1 + below(6); steps > 0; --steps) {
            step();
            compare();
            if (HasFailure()) return;
        }
        endSearch();
    }
}

TEST_F(ReviewProperty, FilesLoadBackToWhatIsInMemory) {
    for (int sequence = 0; sequence < 300; ++sequence) {
        SCOPED_TRACE(sequence);
        world.clock.advance(1.25);
        // `showScan` empties the stores in memory alone.
        files::remove(world.directories.store() + "/rules.json");
        files::remove(world.directories.store() + "/calibration.json");
        inventScan();
        ScanRecord record;
        record.started = world.clock.now();
        for (const auto& messageID : moved) record.moved.push_back({messageID, "", ""});
        state->currentRecord.reset();
        showScan();
        record.folder = (*state->folder)->name;
        record.account = account().displayLabel();
        state->accounts.set({account()});
        std::vector<ScanRecord::Saved> saved;
        for (const auto& verdict : list) saved.push_back(savedFrom(verdict, ticked(verdict.id)));
        state->history.writeScan(saved, record.started);
        state->currentRecord = record;
        for (auto steps = 1 + below(6); steps > 0; --steps) step();
        compare();
        endSearch();
        const bool settled = chance(50);  // else it is reopened before the last ticks are saved
        if (settled) settle();

        const Rules rules(world.services());
        EXPECT_EQ(*rules.all, *state->rules.all);
        EXPECT_EQ(*rules.session, *state->rules.session);
        EXPECT_EQ(*Calibration(world.services()).byCategory, *state->calibration.byCategory);
        auto expected = *state->approved;
        for (const auto& verdict : list)
            if (verdict.messageID && moved.contains(*verdict.messageID)) expected.erase(verdict.id);
        state->openRecord(record);
        EXPECT_EQ(*state->approved, expected);
        EXPECT_EQ(*state->touched, naive->touched);
        EXPECT_EQ(std::vector<Verdict>(state->verdicts->begin(), state->verdicts->end()), list);
        const auto file = state->history.readScan(record.started);
        ASSERT_TRUE(file);
        for (const auto& message : *file)
            EXPECT_EQ(message.approved, naive->ticked.contains(message.n)) << message.n;
        if (HasFailure()) return;
    }
}

}  // namespace
}  // namespace brindlet
