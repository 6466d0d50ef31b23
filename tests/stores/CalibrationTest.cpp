#include "stores/Calibration.h"

#include <gtest/gtest.h>

#include "stores/StoreWorld.h"

namespace brindlet {
namespace {

using Verdict = Rule::Verdict;
constexpr auto news = Category::newsletterOrDigest;
constexpr auto invitation = Category::accountWelcomeOrInvitation;

struct CalibrationWorld : StoreWorld {
    Calibration calibration{services()};

    /// So many corrections, by so many senders in turn.
    void record(Category category, Verdict verdict, int corrections, int senders) {
        for (int i = 0; i < corrections; ++i)
            calibration.record(category, verdict, "s" + std::to_string(i % senders) + "@x.example");
    }
};

std::string tallyJson(int toKeep, int toJunk, int keepSenders, int junkSenders) {
    const auto senders = [](int count) {
        std::string text;
        for (int i = 0; i < count; ++i) text += (i ? ",\"s" : "\"s") + std::to_string(i) + "\"";
        return "[" + text + "]";
    };
    return "{\"toKeep\":" + std::to_string(toKeep) + ",\"toJunk\":" + std::to_string(toJunk) +
           ",\"keepSenders\":" + senders(keepSenders) + ",\"junkSenders\":" + senders(junkSenders) +
           "}";
}

TEST(CalibrationFlip, NeedsCountShareAndSendersTogether) {
    constexpr auto keep = Verdict::keep, junk = Verdict::junk;
    const struct {
        int toKeep, toJunk, keepSenders, junkSenders;
        std::optional<Verdict> flip;
    } rows[] = {
        {12, 0, 6, 0, keep},          {10, 2, 6, 0, keep},
        {10, 2, 5, 2, std::nullopt},  {11, 0, 11, 0, std::nullopt},
        {9, 2, 6, 2, std::nullopt},   {12, 3, 6, 3, keep},  // 0.8 exactly
        {16, 4, 6, 4, keep},                                // 0.8 exactly
        {11, 3, 6, 3, std::nullopt},                        // 0.786
        {3, 12, 3, 6, junk},                                // 0.2 exactly
        {4, 16, 4, 6, junk},                                // 0.2 exactly
        {3, 11, 3, 6, std::nullopt},  {2, 10, 6, 6, junk},
        {2, 10, 6, 5, std::nullopt},  {0, 12, 0, 6, junk},
        {0, 11, 0, 11, std::nullopt}, {6, 6, 6, 6, std::nullopt},
        {0, 0, 6, 6, std::nullopt},
    };
    for (const auto& row : rows) {
        const auto tally = tallyJson(row.toKeep, row.toJunk, row.keepSenders, row.junkSenders);
        SCOPED_TRACE(tally);
        StoreWorld world;
        world.put("calibration.json", "{\"tallies\":{\"newsletterOrDigest\":" + tally + "}}");
        EXPECT_EQ(Calibration(world.services()).flip(news), row.flip);
    }
}

TEST(CalibrationFlip, CountsThatNoCounterReachesAreNoTrouble) {
    StoreWorld world;
    world.put("calibration.json", R"({"tallies":{"newsletterOrDigest":{
        "toKeep":9223372036854775807,"toJunk":9223372036854775807,
        "keepSenders":["a","b","c","d","e","f"],"junkSenders":["a","b","c","d","e","f"]}}})");
    Calibration calibration(world.services());
    EXPECT_EQ(calibration.flip(news), Verdict::keep) << "the total stops at the end of its type";
    calibration.record(news, Verdict::keep, "g");
    EXPECT_EQ(calibration.byCategory->at("newsletterOrDigest").toKeep, 9223372036854775807);
}

TEST(CalibrationRecord, TheSixthSenderFlips) {
    CalibrationWorld world;
    world.record(news, Verdict::keep, 10, 5);
    world.record(news, Verdict::junk, 2, 1);
    EXPECT_EQ(world.calibration.flip(news), std::nullopt);
    world.calibration.record(news, Verdict::keep, "sixth@x.example");
    EXPECT_EQ(world.calibration.flip(news), Verdict::keep);
    EXPECT_EQ(Calibration(world.services()).flip(news), Verdict::keep);
}

TEST(CalibrationRecord, KeepsDistinctSendersInOrderOfAppearance) {
    CalibrationWorld world;
    for (const char* sender : {"b", "a", "", "b", "B", "c"})
        world.calibration.record(news, Verdict::junk, sender);
    const auto& tally = world.calibration.byCategory->at("newsletterOrDigest");
    EXPECT_EQ(tally.toJunk, 6);
    EXPECT_EQ(tally.toKeep, 0);
    EXPECT_EQ(tally.junkSenders, (std::vector<std::string>{"b", "a", "B", "c"}));
    EXPECT_TRUE(tally.keepSenders.empty());
}

TEST(CalibrationRecord, TwelveCorrectionsWithoutASenderDoNotFlip) {
    CalibrationWorld world;
    for (int i = 0; i < 12; ++i) world.calibration.record(news, Verdict::keep, "");
    EXPECT_EQ(world.calibration.byCategory->at("newsletterOrDigest").toKeep, 12);
    EXPECT_TRUE(world.calibration.byCategory->at("newsletterOrDigest").keepSenders.empty());
    EXPECT_EQ(world.calibration.flip(news), std::nullopt);
}

TEST(CalibrationRecord, CorrectionsToJunkOfAProtectedCategoryAreNotCounted) {
    const Category protectedOnes[] = {Category::cannotTell, Category::personalMessageOrReminder,
                                      Category::securityCodeOrSignInAlert,
                                      Category::receiptOrOrderOrShipping, Category::billOrPayment};
    for (const Category category : allCases<Category>()) {
        SCOPED_TRACE(rawValue(category));
        const bool isProtected = std::find(std::begin(protectedOnes), std::end(protectedOnes),
                                           category) != std::end(protectedOnes);
        CalibrationWorld world;
        const Signals signals(world.calibration);
        world.record(category, Verdict::junk, 20, 10);
        EXPECT_EQ(world.calibration.byCategory->size(), isProtected ? 0u : 1u);
        EXPECT_EQ(signals.count(), isProtected ? 0 : 20);
        EXPECT_EQ(world.has("calibration.json"), !isProtected);
        EXPECT_EQ(world.calibration.flip(category).has_value(), !isProtected);
        world.record(category, Verdict::keep, 1, 1);
        EXPECT_EQ(world.calibration.byCategory->at(std::string(rawValue(category))).toKeep, 1);
    }
}

TEST(CalibrationFlip, AProtectedCategoryDoesNotFlipToJunkWhateverTheFileHolds) {
    StoreWorld world;
    world.put("calibration.json",
              "{\"tallies\":{\"billOrPayment\":" + tallyJson(0, 50, 0, 20) + "}}");
    const Calibration calibration(world.services());
    EXPECT_EQ(calibration.flip(Category::billOrPayment), std::nullopt);
    EXPECT_TRUE(calibration.flips().empty());
}

TEST(CalibrationFlip, EndsWhenCorrectionsRunTheOtherWay) {
    CalibrationWorld world;
    world.record(news, Verdict::keep, 12, 6);
    EXPECT_EQ(world.calibration.flip(news), Verdict::keep);
    world.record(news, Verdict::junk, 4, 4);
    EXPECT_EQ(world.calibration.flip(news), std::nullopt);
}

TEST(CalibrationMute, EndsTheFlipWhileTheTallyGoesOn) {
    CalibrationWorld world;
    auto& calibration = world.calibration;
    world.record(news, Verdict::keep, 12, 6);
    calibration.mute(news);
    EXPECT_EQ(calibration.flip(news), std::nullopt);
    EXPECT_TRUE(calibration.rows().empty());
    EXPECT_TRUE(calibration.flips().empty());
    world.record(news, Verdict::keep, 1, 1);
    EXPECT_EQ(calibration.byCategory->at("newsletterOrDigest").toKeep, 13);
    const Calibration reloaded(world.services());
    EXPECT_EQ(*reloaded.muted, std::set<std::string>{"newsletterOrDigest"});
    EXPECT_EQ(*reloaded.byCategory, *calibration.byCategory);
}

TEST(CalibrationForget, StartsAgainFromZeroAndUnmuted) {
    CalibrationWorld world;
    auto& calibration = world.calibration;
    world.record(news, Verdict::keep, 12, 6);
    calibration.mute(news);
    calibration.forget(news);
    EXPECT_TRUE(calibration.byCategory->empty());
    EXPECT_TRUE(calibration.muted->empty());
    EXPECT_TRUE(Calibration(world.services()).byCategory->empty());
    world.record(news, Verdict::keep, 12, 6);
    EXPECT_EQ(calibration.flip(news), Verdict::keep);
}

TEST(CalibrationRows, TheMostCorrectedComeFirstAndTiesByCategory) {
    CalibrationWorld world;
    world.record(invitation, Verdict::junk, 12, 6);
    world.record(news, Verdict::keep, 20, 6);
    world.record(Category::advertisingOrPromotion, Verdict::keep, 12, 6);
    world.record(Category::socialMediaBlast, Verdict::keep, 11, 6);
    const auto rows = world.calibration.rows();
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0].category, news);
    EXPECT_EQ(rows[0].verdict, Verdict::keep);
    EXPECT_EQ(rows[0].tally.toKeep, 20);
    EXPECT_EQ(rows[0].tally.keepSenders.size(), 6u);
    EXPECT_EQ(rows[1].category, Category::advertisingOrPromotion);
    EXPECT_EQ(rows[2].category, invitation);
    EXPECT_EQ(rows[2].verdict, Verdict::junk);
}

TEST(CalibrationRows, AFlipThatAgreesWithTheDefaultIsARowToo) {
    CalibrationWorld world;
    world.record(news, Verdict::junk, 12, 6);
    EXPECT_EQ(world.calibration.rows().size(), 1u);
    EXPECT_EQ(world.calibration.flips(), (std::map<Category, Verdict>{{news, Verdict::junk}}));
}

TEST(CalibrationFile, KeepsTalliesOfUnknownCategoriesAndShowsNoRow) {
    StoreWorld world;
    world.put("calibration.json", "{\"tallies\":{\"fromTheFuture\":" + tallyJson(12, 0, 6, 0) +
                                      "},\"muted\":[\"alsoUnknown\"],\"more\":1}");
    Calibration calibration(world.services());
    EXPECT_TRUE(calibration.rows().empty());
    EXPECT_TRUE(calibration.flips().empty());
    calibration.record(news, Verdict::keep, "a");
    const Calibration reloaded(world.services());
    EXPECT_EQ(reloaded.byCategory->at("fromTheFuture").toKeep, 12);
    EXPECT_EQ(reloaded.byCategory->at("fromTheFuture").keepSenders.size(), 6u);
    EXPECT_TRUE(reloaded.muted->contains("alsoUnknown"));
}

TEST(CalibrationFile, EveryKeyMayBeAbsentOrNull) {
    const Calibration::Tally nothing;
    for (const char* json :
         {"{}", R"({"tallies":null,"muted":null})", R"({"tallies":{},"muted":[]})"}) {
        SCOPED_TRACE(json);
        StoreWorld world;
        world.put("calibration.json", json);
        const Calibration calibration(world.services());
        EXPECT_TRUE(calibration.byCategory->empty());
        EXPECT_TRUE(calibration.muted->empty());
        EXPECT_TRUE(world.has("calibration.json"));
    }
    for (const char* tally :
         {"{}", R"({"toKeep":null,"toJunk":null,"keepSenders":null,"junkSenders":null})"}) {
        SCOPED_TRACE(tally);
        StoreWorld world;
        world.put("calibration.json", std::string("{\"tallies\":{\"cannotTell\":") + tally + "}}");
        EXPECT_EQ(Calibration(world.services()).byCategory->at("cannotTell"), nothing);
    }
}

TEST(CalibrationFile, DamageIsMovedAsideAndTheStoreStartsEmpty) {
    std::vector<std::string> texts(std::begin(damagedTexts), std::end(damagedTexts));
    for (const char* more :
         {"[]", R"({"tallies":[]})", R"({"muted":{}})", R"({"muted":[1]})", R"({"muted":"a"})",
          R"({"tallies":{"cannotTell":null}})", R"({"tallies":{"cannotTell":[]}})",
          R"({"tallies":{"cannotTell":{"toKeep":1.5}}})",
          R"({"tallies":{"cannotTell":{"toKeep":"1"}}})",
          R"({"tallies":{"cannotTell":{"toJunk":true}}})",
          R"({"tallies":{"cannotTell":{"keepSenders":"a"}}})",
          R"({"tallies":{"cannotTell":{"junkSenders":[null]}}})"})
        texts.emplace_back(more);
    for (const auto& text : texts) {
        SCOPED_TRACE(text);
        StoreWorld world;
        world.put("calibration.json", text);
        Calibration calibration(world.services());
        EXPECT_TRUE(calibration.byCategory->empty());
        EXPECT_FALSE(world.has("calibration.json"));
        EXPECT_EQ(world.text("calibration.json.unreadable"), text);
        calibration.record(news, Verdict::keep, "a");
        EXPECT_EQ(*Calibration(world.services()).byCategory, *calibration.byCategory);
    }
}

TEST(CalibrationFile, ASecondDamagedFileStaysUntilTheNextSave) {
    StoreWorld world;
    world.put("calibration.json", "first damage");
    { Calibration calibration(world.services()); }
    world.put("calibration.json", "second damage");
    Calibration calibration(world.services());
    EXPECT_EQ(world.text("calibration.json.unreadable"), "first damage");
    EXPECT_EQ(world.text("calibration.json"), "second damage");
    calibration.record(news, Verdict::keep, "a");
    EXPECT_EQ(world.text("calibration.json.unreadable"), "first damage");
    EXPECT_EQ(*Calibration(world.services()).byCategory, *calibration.byCategory);
}

}  // namespace
}  // namespace brindlet
