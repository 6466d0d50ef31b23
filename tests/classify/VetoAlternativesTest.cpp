#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/Pattern.h"
#include "classify/Classifier.h"
#include "classify/VetoSamples.h"

namespace brindlet {
namespace {

/// An alternative of an expression: where it stands, and what divides it from the others.
struct Alternative {
    std::size_t start = 0;
    std::size_t end = 0;
    bool first = false;
    bool only = false;
};

/// Finds the alternatives of the whole and of each group that has more than one, by their starts.
/// Knows groups and classes, as far as the veto has them.
class Alternatives {
  public:
    explicit Alternatives(std::string_view text) : text_(text) {
        const std::string_view flags = "(?i)";
        at_ = text.starts_with(flags) ? flags.size() : 0;
        readGroup();
    }
    std::vector<Alternative> list;

  private:
    void readGroup() {
        std::vector<std::size_t> mine;
        const auto begin = [&] {
            mine.push_back(list.size());
            list.push_back({at_, at_, mine.size() == 1, false});
        };
        begin();
        for (; at_ < text_.size() && text_[at_] != ')'; ++at_) {
            if (text_[at_] == '[') at_ = text_.find(']', at_);
            if (text_[at_] == '(') {
                ++at_;
                readGroup();
            } else if (text_[at_] == '|') {
                list[mine.back()].end = at_++;
                begin();
                --at_;
            }
        }
        list[mine.back()].end = at_;
        if (mine.size() == 1) list[mine.front()].only = true;
    }

    std::string_view text_;
    std::size_t at_ = 0;
};

std::string without(const Alternative& alternative, std::string_view expression) {
    const auto start = alternative.first ? alternative.start : alternative.start - 1;
    const auto end = alternative.first ? alternative.end + 1 : alternative.end;
    return std::string(expression.substr(0, start)) + std::string(expression.substr(end));
}

TEST(VetoAlternatives, EachHasASampleThatNeedsIt) {
    const auto expression = Classifier::vetoRegex();
    const auto alternatives = Alternatives(expression).list;
    const auto& samples = vetoSamples();
    ASSERT_EQ(alternatives.size(), samples.size());
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const auto& each = alternatives[i];
        ASSERT_FALSE(each.only) << "a group of one is no alternative";
        const auto& sample = samples[i];
        SCOPED_TRACE(std::string(sample.alternative) + ": " + std::string(sample.subject));
        ASSERT_EQ(expression.substr(each.start, each.end - each.start), sample.alternative);
        EXPECT_TRUE(Classifier::isVetoed(sample.subject));
        EXPECT_EQ(Pattern(without(each, expression)).occursIn(sample.subject), sample.covered);
    }
}

}  // namespace
}  // namespace brindlet
