#include <cstdio>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "Rounds.h"
#include "doubles/Doubles.h"
#include "session/AppState.h"
#include "words/CategoryWords.h"
#include "words/PickWords.h"
#include "words/ResultsWords.h"
#include "words/ScanningWords.h"

// The words that are made anew at every refresh of a screen must not cost more because a scan has
// found much: their floor is the same work over an empty session. What is done once for each new
// list of verdicts is measured beside a mere look at each.

namespace brindlet::bench {
namespace {

constexpr std::size_t messages = 100'000;
constexpr int refreshes = 1000;

VerdictList found() {
    constexpr auto categories = allCases<Category>();
    std::vector<Verdict> verdicts;
    verdicts.reserve(messages);
    for (std::size_t i = 0; i < messages; ++i) {
        const auto category = categories[i * 7 % categories.size()];
        const bool vetoed = i % 31 == 0;
        verdicts.push_back({static_cast<std::int64_t>(i), std::to_string(i) + "@example.org",
                            "A sender of many letters <letters@example.org>",
                            "A subject that is about as long as most of them are", category,
                            !vetoed && isDefaultJunk(category), vetoed, false});
    }
    return VerdictList(std::move(verdicts));
}

void fill(AppState& state, const VerdictList& verdicts) {
    MailAccount account{"A1", "ann@example.org", "Ann", {}};
    for (int i = 0; i < 40; ++i)
        account.folders.push_back(
            {i, "Folder " + std::to_string(i), 1000, MailFolder::Role::custom});
    state.accounts.set({account});
    state.account.set(account);
    state.folder.set(account.folders.front());
    state.running.set(true);
    state.verdicts.set(verdicts);
}

bool run() {
    doubles::World emptyWorld;
    doubles::World world;
    const auto empty = AppState::make(emptyWorld.services());
    const auto full = AppState::make(world.services());
    const auto verdicts = found();
    fill(*empty, {});
    fill(*full, verdicts);

    std::vector<std::uint32_t> all(verdicts.size());
    std::iota(all.begin(), all.end(), 0U);
    std::size_t sum = 0;  // so that nothing is left out for want of a use
    const auto refresh = [&](const auto& words, const AppState& state) {
        return [&sum, words, &state] {
            for (int i = 0; i < refreshes; ++i) sum += words(state);
        };
    };
    const auto scanning = [](const AppState& s) { return scanningWords(s).percent.size(); };
    const auto results = [](const AppState& s) { return resultsWords(s).title.size(); };
    const auto pick = [](const AppState& s) { return pickWords(s).folders.size(); };
    const bool good = compare(
        {
            {"1000 refreshes, scanning", refresh(scanning, *empty), refresh(scanning, *full), 2,
             1.5},
            {"1000 refreshes, results", refresh(results, *empty), refresh(results, *full), 2, 1.5},
            {"1000 refreshes, pick", refresh(pick, *empty), refresh(pick, *full), 2, 1.1},
            {"categories of the verdicts",
             [&] {
                 for (const auto& verdict : verdicts)
                     sum += static_cast<std::size_t>(verdict.category) + verdict.vetoed;
             },
             [&] { sum += categoryRows(verdicts, all).size(); }, 3, 1.5},
        },
        9, std::to_string(messages));
    std::printf("checked: %zu\n", sum);
    return good;
}

}  // namespace
}  // namespace brindlet::bench

int main() {
    return brindlet::bench::run() ? 0 : 1;
}
