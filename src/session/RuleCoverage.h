#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/EnumInfo.h"
#include "classify/Category.h"
#include "session/VerdictList.h"
#include "stores/Rule.h"
#include "stores/SenderAddress.h"

namespace brindlet {

/// Which messages each of a list of rules covers: those that pass its address test, have its
/// category and hold its template. A rule that is held back covers what it would cover. One thread.
///
/// Meant for many rules and many messages at once. Senders are told apart once, and each message is
/// filed under the senders of the rules that cover it; categories are counted for all rules of a
/// sender together, and so are templates, in one walk over words that are cut only once. What was
/// counted stays known until the verdicts change, so another rule costs little more than itself.
class RuleCoverage {
  public:
    RuleCoverage() = default;
    RuleCoverage(RuleCoverage&&) = default;
    RuleCoverage& operator=(RuleCoverage&&) = default;

    /// Looks only at these positions of `verdicts`, which ascend. The rules must be set anew.
    void setVerdicts(const VerdictList& verdicts, const std::vector<std::uint32_t>& positions);
    /// Rules are spoken of by their place in this list.
    void setRules(const std::vector<Rule>& rules);

    std::int64_t count(std::size_t rule) const { return rules_[rule]->second; }
    /// Ascending positions.
    std::vector<std::uint32_t> covered(std::size_t rule);

  private:
    static constexpr std::size_t categories = allCases<Category>().size();
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const {
            return std::hash<std::string_view>()(text);
        }
    };
    template <class T>
    using ByText = std::unordered_map<std::string, T, Hash, std::equal_to<>>;
    using Words = std::vector<std::uint32_t>;

    struct Message {
        std::uint32_t position = 0;
        std::uint32_t sender = 0;
        /// The subject's, once a template has asked for them.
        std::optional<Words> words;
    };
    /// What the rules of one sender have in common.
    struct Target {
        /// Places in `messages_`, ascending.
        std::vector<std::uint32_t> messages;
        std::array<std::int64_t, categories> tally{};
    };
    /// What tells rules apart as far as covering goes.
    struct Pattern {
        std::uint32_t target = 0;
        bool anyCategory = false;
        /// None with `anyCategory`, and for a category that no message has.
        std::optional<Category> category;
        Words words;

        friend auto operator<=>(const Pattern&, const Pattern&) = default;
    };
    using Counts = std::map<Pattern, std::int64_t>;

    Pattern patternOf(const Rule& rule);
    /// Files the messages under the targets from `firstNew` on.
    void fileMessages(std::size_t firstNew);
    std::int64_t countWithoutTemplate(const Pattern& pattern) const;
    /// All of one target, none of them empty.
    void countTemplates(const std::vector<Counts::iterator>& patterns);
    Category categoryOf(const Message& message) const;
    const Words& wordsOf(Message& message);
    std::uint32_t wordNumber(std::string_view word);

    VerdictList verdicts_;
    std::vector<Message> messages_;
    std::vector<SenderAddress> senders_;
    ByText<std::uint32_t> wordNumbers_;

    std::vector<Target> targets_;
    ByText<std::uint32_t> targetNumbers_;
    std::size_t longestSender_ = 0;
    Counts counts_;
    /// In `counts_`, by the rules' places.
    std::vector<Counts::const_iterator> rules_;
};

}  // namespace brindlet
