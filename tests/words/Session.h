#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "doubles/Doubles.h"
#include "session/AppState.h"

namespace brindlet {

/// A session over doubles, whose fields a test sets as a scan or a load of the accounts would.
struct Session {
    doubles::World world;
    std::shared_ptr<AppState> state = AppState::make(world.services());

    AppState* operator->() { return state.get(); }
    operator const AppState&() const { return *state; }

    Date now() { return world.clock.now(); }

    static MailFolder folder(MailFolder::Role role, std::string name = "Box",
                             std::int64_t count = 10, std::int64_t id = 1) {
        return {id, std::move(name), count, role};
    }

    /// Selects the account "ann@x.com" with this one folder, and the folder.
    void select(const MailFolder& chosen) {
        const MailAccount account{"A1", "ann@x.com", "Ann", {chosen}};
        state->accounts.set({account});
        state->account.set(account);
        state->folder.set(chosen);
    }

    /// Decides so many messages of the selected account's folder.
    void markSeen(const std::string& folderName, int count, bool junk = false) {
        std::vector<std::string> ids;
        for (int i = 0; i < count; ++i)
            ids.push_back(folderName + "-" + std::to_string(i) + "@x.com");
        state->seen.mark(ids, junk, "ann@x.com", folderName);
    }

    void publish(int junk, int kept, int vetoed = 0) {
        std::vector<Verdict> verdicts;
        const auto add = [&](int count, Category category, bool isJunk, bool isVetoed) {
            for (int i = 0; i < count; ++i) {
                const auto id = static_cast<std::int64_t>(verdicts.size()) + 1;
                verdicts.push_back({id, std::to_string(id) + "@x.com", "Shop <shop@x.com>", "Sale",
                                    category, isJunk, isVetoed, false});
            }
        };
        add(junk, Category::advertisingOrPromotion, true, false);
        add(kept, Category::receiptOrOrderOrShipping, false, false);
        add(vetoed, Category::advertisingOrPromotion, false, true);
        state->verdicts.set(VerdictList(std::move(verdicts)));
    }

    /// Corrects a category often enough, and for enough senders, to flip it.
    void flip(Category category, Rule::Verdict verdict, std::int64_t corrections = 12) {
        Calibration::Tally tally;
        auto& count = verdict == Rule::Verdict::keep ? tally.toKeep : tally.toJunk;
        auto& senders = verdict == Rule::Verdict::keep ? tally.keepSenders : tally.junkSenders;
        count = corrections;
        senders = {"a.com", "b.com", "c.com", "d.com", "e.com", "f.com"};
        state->calibration.byCategory.mutate(
            [&](auto& tallies) { tallies[std::string(rawValue(category))] = tally; });
    }
};

}  // namespace brindlet
