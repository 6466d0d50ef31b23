#include "session/Corrections.h"

#include <gtest/gtest.h>

namespace brindlet {
namespace {

using Said = Rule::Verdict;
using Positions = std::vector<std::uint32_t>;

TEST(Corrections, JunkFolderTurnsWhatATickSays) {
    struct Row {
        bool inJunk, nowTicked, isJunk;
        bool proposed;
        Said said;
        bool corrects;
    };
    const Row rows[] = {
        // Anywhere but in a junk folder: a tick calls the message junk.
        {false, true, true, true, Said::junk, false},
        {false, false, true, true, Said::keep, true},
        {false, true, false, false, Said::junk, true},
        {false, false, false, false, Said::keep, false},
        // In one: a tick calls it real mail.
        {true, true, false, true, Said::keep, false},
        {true, false, false, true, Said::junk, true},
        {true, true, true, false, Said::keep, true},
        {true, false, true, false, Said::junk, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << row.inJunk << row.nowTicked << row.isJunk);
        EXPECT_EQ(proposesTick(row.inJunk, row.isJunk), row.proposed);
        EXPECT_EQ(saidBy(row.inJunk, row.nowTicked), row.said);
        EXPECT_EQ(corrects(row.inJunk, row.nowTicked, row.isJunk), row.corrects);
    }
}

TEST(Corrections, OthersAreOfTheSameSenderCategoryAndState) {
    std::vector<Verdict> list(8);
    for (std::size_t i = 0; i < list.size(); ++i) {
        list[i].id = static_cast<std::int64_t>(10 + i);
        list[i].messageID = "m";
        list[i].sender = "a1@x.example";
        list[i].category = Category::newsletterOrDigest;
    }
    list[1].sender = "Another <a2@x.example>";  // the same key
    list[2].sender = "a@x.example";
    list[3].category = Category::cannotTell;
    list[4].messageID.reset();
    const VerdictList verdicts(list);
    const VerdictIndex index(verdicts);
    const IdSet ticked{15, 16};
    EXPECT_EQ(othersLike(0, verdicts, index, ticked, false), (Positions{1, 7}));
    EXPECT_EQ(othersLike(0, verdicts, index, ticked, true), (Positions{5, 6}));
    EXPECT_EQ(othersLike(5, verdicts, index, ticked, true), (Positions{6}));
}

TEST(Corrections, FirstOfACategoryIsFirstInTheList) {
    std::vector<Verdict> list(5);
    list[1].category = list[3].category = Category::newsletterOrDigest;
    list[4].category = Category::billOrPayment;
    const VerdictList verdicts(list);
    EXPECT_EQ(firstOfEachCategory({4, 3, 2, 1}, verdicts), (Positions{1, 2, 4}));
    EXPECT_EQ(firstOfEachCategory({}, verdicts), Positions());
}

}  // namespace
}  // namespace brindlet
