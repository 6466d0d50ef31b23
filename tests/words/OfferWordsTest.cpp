#include "words/OfferWords.h"

#include <gtest/gtest.h>

#include <numeric>

#include "doubles/Doubles.h"

namespace brindlet {
namespace {

using Ids = std::vector<std::int64_t>;
using Buttons = std::vector<OfferButton>;

const OfferButton declines{"Not this time", "", std::nullopt, false};
const std::string keeps = "Change these, and keep the rule for good";

Ids ids(std::size_t count) {
    Ids made(count);
    std::iota(made.begin(), made.end(), 1);
    return made;
}

PendingRule offer(std::size_t members, std::size_t kin, std::size_t everything) {
    PendingRule made;
    made.category = Category::advertisingOrPromotion;
    if (members > 0) made.templateWords = {"Last", "chance"};
    made.members = ids(members);
    made.kin = ids(kin);
    made.everything = ids(everything);
    return made;
}

OfferWords wordsFor(const PendingRule& made) {
    return offerWords(made, doubles::FixedLocale());
}

TEST(OfferWords, MembersAreAskedFor) {
    const auto words = wordsFor(offer(1234, 0, 1500));
    EXPECT_EQ(words.question, "Do the same for 1,234 more like this?");
    EXPECT_EQ(words.explanation,
              "\u201cLast chance\u201d - their other Ads & promotions is untouched");
    EXPECT_EQ(
        words.buttons,
        (Buttons{{"These 1,234", "Change only the messages shaped like this one",
                  SweepChoice::members, false},
                 {"Every Ads & promotions from this sender", "", SweepChoice::everything, false},
                 {"Always", keeps, SweepChoice::members, true},
                 declines}));
}

TEST(OfferWords, KinIsAskedForWhereThereAreNoMembers) {
    const auto words = wordsFor(offer(0, 3, 9));
    EXPECT_EQ(words.question, "Do the same for 3 more about the same thing?");
    EXPECT_EQ(words.explanation, "Matched on what the message is about - the rest is untouched");
    EXPECT_EQ(
        words.buttons,
        (Buttons{
            {"These 3", "Every message from them about the same thing", SweepChoice::kin, false},
            {"Every Ads & promotions from this sender", "", SweepChoice::everything, false},
            {"Always", keeps, SweepChoice::kin, true},
            declines}));
}

TEST(OfferWords, KinWidensMembers) {
    const auto words = wordsFor(offer(2, 5, 9));
    EXPECT_EQ(words.question, "Do the same for 2 more like this?");
    EXPECT_EQ(words.explanation,
              "\u201cLast chance\u201d - their other Ads & promotions is untouched");
    EXPECT_EQ(
        words.buttons,
        (Buttons{{"These 2", "Change only the messages shaped like this one", SweepChoice::members,
                  false},
                 {"All 5 like these",
                  "Every message from them about the same thing, however it is worded",
                  SweepChoice::kin, false},
                 {"Every Ads & promotions from this sender", "", SweepChoice::everything, false},
                 {"Always", keeps, SweepChoice::members, true},
                 declines}));
}

TEST(OfferWords, TheWholeSenderIsStillThere) {
    auto made = offer(0, 0, 9);
    made.category = Category::newsletterOrDigest;
    const auto words = wordsFor(made);
    EXPECT_EQ(words.question, "Only this one - nothing else they sent looks like it");
    EXPECT_EQ(words.explanation, "The whole sender is still there if that is what you meant");
    EXPECT_EQ(words.buttons, (Buttons{{"Every Newsletters & digests from this sender", "",
                                       SweepChoice::everything, false},
                                      {"Always", keeps, SweepChoice::everything, true},
                                      declines}));
}

TEST(OfferWords, AnOfferOfNothingCanOnlyBeDeclined) {
    const auto words = wordsFor(offer(0, 0, 0));
    EXPECT_EQ(words.question, "Only this one - nothing else they sent looks like it");
    EXPECT_EQ(words.explanation, "");
    EXPECT_EQ(words.buttons, Buttons{declines});
}

TEST(OfferWords, OneMessageIsWordedLikeSeveral) {
    EXPECT_EQ(wordsFor(offer(1, 0, 1)).question, "Do the same for 1 more like this?");
    EXPECT_EQ(wordsFor(offer(1, 0, 1)).buttons.front().label, "These 1");
}

}  // namespace
}  // namespace brindlet
