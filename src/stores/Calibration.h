#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/Observable.h"
#include "classify/Category.h"
#include "platform/Services.h"
#include "stores/Rule.h"

namespace brindlet {

/// Watches how often the person corrects a whole category, in "calibration.json". When corrections
/// run strongly one way and come from enough senders, the category flips: from then on a scan
/// treats it the other way. Whether it is flipped is worked out at each asking and never stored.
/// Main thread; saves at once, unnoticed if that fails.
class Calibration : public Observable {
  public:
    struct Tally {
        std::int64_t toKeep = 0;
        std::int64_t toJunk = 0;
        /// Distinct senders in order of first appearance.
        std::vector<std::string> keepSenders;
        std::vector<std::string> junkSenders;

        friend bool operator==(const Tally&, const Tally&) = default;
    };
    /// A category that is flipped right now.
    struct Row {
        Category category = Category::cannotTell;
        Rule::Verdict verdict = Rule::Verdict::keep;
        Tally tally;
    };

    /// Loads the file; one that cannot be decoded is moved aside and leaves the store empty.
    explicit Calibration(Services services);

    /// Keyed by raw category; keys that are no category are kept and saved back.
    Published<std::map<std::string, Tally>> byCategory{*this};
    Published<std::set<std::string>> muted{*this};

    /// A correction: `keep` when the person wants the message kept. One to junk is not counted at
    /// all for a category that can never flip to junk.
    void record(Category category, Rule::Verdict verdict, std::string_view sender);
    std::optional<Rule::Verdict> flip(Category category) const;
    /// Every flipped category, the most corrected first, ties in category order.
    std::vector<Row> rows() const;
    std::map<Category, Rule::Verdict> flips() const;
    /// Lets the model decide the category again; its tally goes on counting.
    void mute(Category category);
    /// Counts from zero again, and ends a mute.
    void forget(Category category);

  private:
    void load();
    void save() const;
    std::string path_;
};

}  // namespace brindlet
