#include <algorithm>

#include "base/Text.h"
#include "platform/UserDefaults.h"
#include "session/AppState.h"

namespace brindlet {
namespace {

constexpr std::size_t mostTouched = 2000;

void putLast(Published<std::vector<std::string>>& list, const std::string& entry) {
    list.mutate([&](std::vector<std::string>& entries) {
        std::erase(entries, entry);
        entries.push_back(entry);
    });
}

}  // namespace

void AppState::markTouched(std::int64_t id) {
    if (!touched->empty() && touched->back() == id) return;
    touched.mutate([&](std::vector<std::int64_t>& ids) {
        if (!touchedSet.insert(id).second) std::erase(ids, id);
        ids.push_back(id);
        if (ids.size() > mostTouched) {
            touchedSet.erase(ids.front());
            ids.erase(ids.begin());
        }
    });
    if (!currentRecord) return;
    UserDefaults::Strings decimals;
    decimals.reserve(touched->size());
    for (const auto each : *touched) decimals.push_back(std::to_string(each));
    storeReview("touched", decimals);
}

void AppState::markReviewed(const std::string& group) {
    putLast(reviewed, group);
    storeReview("reviewed", *reviewed);
}

void AppState::markCategoryReviewed(Category category) {
    putLast(reviewedCats, std::string(rawValue(category)));
    storeReview("reviewedCats", *reviewedCats);
}

void AppState::storeReview(std::string_view what, const UserDefaults::Strings& strings) {
    if (currentRecord)
        services_.defaults.setStrings(std::string(what) + "-" + currentRecord->id(), strings);
}

void AppState::restoreReviewState() {
    const auto stored = [&](const char* what) {
        return services_.defaults.strings(std::string(what) + "-" + currentRecord->id())
            .value_or(UserDefaults::Strings());
    };
    reviewed.set(stored("reviewed"));
    reviewedCats.set(stored("reviewedCats"));
    std::vector<std::int64_t> ids;
    for (const auto& decimal : stored("touched"))
        if (const auto id = parseInt64(decimal)) ids.push_back(*id);
    touchedSet = {ids.begin(), ids.end()};
    touched.set(std::move(ids));
}

}  // namespace brindlet
