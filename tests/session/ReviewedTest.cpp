#include <gtest/gtest.h>

#include "session/ReviewFixture.h"

namespace brindlet {
namespace {

using Strings = std::vector<std::string>;

/// What is remembered of a review.
class Reviewed : public ReviewTest {
  protected:
    std::optional<Strings> stored(const std::string& what) {
        return world.defaults.strings(what + "-1700000000.0INBOX");
    }
};

TEST_F(Reviewed, HandledMessagesStandOldestFirstAndOnce) {
    addVerdicts(3, "a@x.example", "News");
    showRecorded();
    for (const std::int64_t id : {1, 2, 3, 3, 1}) state->toggleMessage(id);
    EXPECT_EQ(*state->touched, (Numbers{2, 3, 1}));
    EXPECT_EQ(state->touchedSet, (std::unordered_set<std::int64_t>{1, 2, 3}));
    EXPECT_EQ(stored("touched"), (Strings{"2", "3", "1"}));
}

TEST_F(Reviewed, TheLastHandledAgainIsNotStoredAgain) {
    addVerdict("a@x.example", "News");
    showRecorded();
    state->toggleMessage(1);
    world.defaults.raw.clear();
    state->toggleMessage(1);
    EXPECT_TRUE(world.defaults.raw.empty());
}

TEST_F(Reviewed, TwoThousandAndFirstHandledDropsTheOldest) {
    for (int i = 0; i < 2001; ++i) addVerdict("a@x" + std::to_string(i) + ".example", "News");
    showRecorded();
    state->approved.set({});  // ticks that agree and have no neighbours teach nothing
    for (std::int64_t id = 1; id <= 2000; ++id) state->toggleMessage(id);
    EXPECT_EQ(state->touched->size(), 2000u);
    EXPECT_EQ(state->touched->front(), 1);
    state->toggleMessage(2001);
    EXPECT_EQ(state->touched->size(), 2000u);
    EXPECT_EQ(state->touched->front(), 2);
    EXPECT_EQ(state->touched->back(), 2001);
    EXPECT_FALSE(state->touchedSet.contains(1));
    EXPECT_EQ(state->touchedSet.size(), 2000u);
    EXPECT_EQ(stored("touched")->size(), 2000u);
    state->toggleMessage(2);
    EXPECT_EQ(state->touched->front(), 3) << "one that comes again drops nothing";
    EXPECT_EQ(state->touched->size(), 2000u);
}

TEST_F(Reviewed, GroupsAndCategoriesStandLatestLastAndOnce) {
    showRecorded();
    for (const auto* group : {"x.example", "a@y.example", "x.example"}) state->markReviewed(group);
    EXPECT_EQ(*state->reviewed, (Strings{"a@y.example", "x.example"}));
    EXPECT_EQ(stored("reviewed"), *state->reviewed);
    for (const auto category :
         {Category::billOrPayment, Category::cannotTell, Category::billOrPayment})
        state->markCategoryReviewed(category);
    EXPECT_EQ(*state->reviewedCats, (Strings{"cannotTell", "billOrPayment"}));
    EXPECT_EQ(stored("reviewedCats"), *state->reviewedCats);
}

TEST_F(Reviewed, WithoutARecordIsRememberedButNotStored) {
    addVerdict("a@x.example", "News");
    show();
    state->toggleMessage(1);
    state->markReviewed("x.example");
    state->markCategoryReviewed(Category::cannotTell);
    EXPECT_EQ(*state->touched, Numbers{1});
    EXPECT_EQ(state->reviewed->size(), 1u);
    EXPECT_FALSE(stored("touched"));
    EXPECT_FALSE(stored("reviewed"));
    EXPECT_FALSE(stored("reviewedCats"));
}

TEST_F(Reviewed, ComesBackWithTheRecord) {
    addVerdict("a@x.example", "News");
    showRecorded();
    world.defaults.setStrings("reviewed-1700000000.0INBOX", {"x.example"});
    world.defaults.setStrings("reviewedCats-1700000000.0INBOX", {"cannotTell", "noSuchThing"});
    world.defaults.setStrings("touched-1700000000.0INBOX", {"7", "", "abc", "-5", "0x10", " 8",
                                                            "9.0", "99999999999999999999", "12"});
    state->openRecord(*state->currentRecord);
    EXPECT_EQ(*state->reviewed, Strings{"x.example"});
    EXPECT_EQ(*state->reviewedCats, (Strings{"cannotTell", "noSuchThing"}));
    EXPECT_EQ(*state->touched, (Numbers{7, -5, 12}));
    EXPECT_EQ(state->touchedSet, (std::unordered_set<std::int64_t>{7, -5, 12}));

    world.defaults.raw.clear();
    state->openRecord(*state->currentRecord);
    EXPECT_TRUE(state->reviewed->empty());
    EXPECT_TRUE(state->reviewedCats->empty());
    EXPECT_TRUE(state->touched->empty());
    EXPECT_TRUE(state->touchedSet.empty());
}

// A fresh scan begins with what was handled before it, and takes that on at the next change.
TEST_F(Reviewed, OfTheScanBeforeIsStoredUnderTheNextOneToo) {
    addVerdicts(1, "a@x.example", "News");
    showRecorded();
    state->toggleMessage(1);
    state->markReviewed("x.example");
    add("b@x.example", "Hello");
    world.clock.set(Date::fromUnix(1'700'000'100.5));
    scan();
    EXPECT_EQ(*state->touched, Numbers{1});
    EXPECT_EQ(*state->reviewed, Strings{"x.example"});
    EXPECT_FALSE(world.defaults.strings("reviewed-1700000100.5INBOX"));
    state->markReviewed("y.example");
    EXPECT_EQ(world.defaults.strings("reviewed-1700000100.5INBOX"),
              (Strings{"x.example", "y.example"}));
    EXPECT_EQ(stored("reviewed"), Strings{"x.example"});
}

}  // namespace
}  // namespace brindlet
