#include "words/CategoryWords.h"

#include <gtest/gtest.h>

#include <numeric>

#include "words/Session.h"

namespace brindlet {
namespace {

using Rows = std::vector<CategoryRows>;

Verdict verdict(std::int64_t id, Category category, bool isJunk = false, bool vetoed = false) {
    return {id, "m@x.com", "", "", category, isJunk, vetoed, false};
}

Rows rowsOf(const VerdictList& verdicts) {
    std::vector<std::uint32_t> all(verdicts.size());
    std::iota(all.begin(), all.end(), 0U);
    return categoryRows(verdicts, all);
}

TEST(CategoryRows, OnlyCategoriesWithMessagesInTheirFixedOrder) {
    const VerdictList verdicts(
        {verdict(1, Category::cannotTell), verdict(2, Category::advertisingOrPromotion, true),
         verdict(3, Category::billOrPayment), verdict(4, Category::cannotTell)});
    EXPECT_EQ(rowsOf(verdicts), (Rows{{Category::advertisingOrPromotion, {1}, 1, {2}},
                                      {Category::billOrPayment, {2}, 1, {3}},
                                      {Category::cannotTell, {0, 3}, 2, {1, 4}}}));
    EXPECT_EQ(rowsOf({}), Rows{});
}

TEST(CategoryRows, ProtectedComeLastAndTheScansOrderStays) {
    const auto ads = Category::advertisingOrPromotion;
    const VerdictList verdicts({verdict(9, ads, false, true), verdict(8, ads, true),
                                verdict(7, ads, false, true), verdict(6, ads, true)});
    EXPECT_EQ(rowsOf(verdicts), (Rows{{ads, {1, 3, 0, 2}, 2, {6, 7, 8, 9}}}));
}

TEST(CategoryRows, OnlyOfThePositionsAskedFor) {
    const auto ads = Category::advertisingOrPromotion;
    const VerdictList verdicts(
        {verdict(1, ads), verdict(2, Category::cannotTell), verdict(3, ads)});
    EXPECT_EQ(categoryRows(verdicts, {2}), (Rows{{ads, {2}, 1, {3}}}));
}

TEST(CategoryRows, AMessageWithoutAnIdHasARowAndCannotBeTicked) {
    const auto ads = Category::advertisingOrPromotion;
    auto nameless = verdict(2, ads);
    nameless.messageID.reset();
    EXPECT_EQ(rowsOf(VerdictList({verdict(1, ads), nameless})), (Rows{{ads, {0, 1}, 2, {1}}}));
}

TEST(CategoryWords, HeaderHasLabelAndCount) {
    Session session;
    const Rows rows = {{Category::socialMediaBlast, std::vector<std::uint32_t>(1234), 1234, {}}};
    const auto words = categoryWords(session, rows);
    ASSERT_EQ(words.size(), 1U);
    EXPECT_EQ(words[0].category, Category::socialMediaBlast);
    EXPECT_EQ(words[0].label, "Social notifications");
    EXPECT_EQ(words[0].count, "1,234");
    EXPECT_EQ(words[0].generalHelp, "Approve or skip this whole category");
}

TEST(CategoryWords, TheBoxTellsOfTheMessagesThatCanBeTicked) {
    const struct {
        IdSet tickable;
        IdSet approved;
        const char* symbol;
        const char* help;
    } rows[] = {
        {{1, 2}, {}, "square", "Tick this whole category"},
        {{1, 2}, {2}, "minus.square.fill", "Tick this whole category"},
        {{1, 2}, {1, 2}, "checkmark.square.fill", "Untick this whole category"},
        // Elsewhere ticked messages count for nothing here.
        {{1, 2}, {3, 4}, "square", "Tick this whole category"},
        {{}, {3}, "minus.square.dashed", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.symbol);
        Session session;
        session->approved.set(row.approved);
        const auto words =
            categoryWords(session, {{Category::socialMediaBlast, {0, 1, 2}, 3, row.tickable}});
        EXPECT_EQ(words[0].tickSymbol, row.symbol);
        EXPECT_EQ(words[0].tickHelp, row.help);
    }
}

TEST(CategoryWords, ReviewIsRememberedByTheRawName) {
    Session session;
    const Rows rows = {{Category::socialMediaBlast, {0}, 1, {}},
                       {Category::billOrPayment, {1}, 1, {}},
                       {Category::cannotTell, {2}, 1, {}}};
    session->reviewedCats.set({"socialMediaBlast", "cannotTell"});
    const auto words = categoryWords(session, rows);
    EXPECT_EQ(words[0].reviewed, (ReviewWords{"Reviewed", ""}));
    EXPECT_EQ(words[1].reviewed, (ReviewWords{"", ""}));
    EXPECT_EQ(words[2].reviewed,
              (ReviewWords{"Last reviewed", "Last reviewed - click to jump there"}));
}

TEST(CategoryWords, TheOpenCategoryIsTheSessions) {
    Session session;
    const Rows rows = {{Category::socialMediaBlast, {0}, 1, {}},
                       {Category::cannotTell, {1}, 1, {}}};
    session->expand.set(Category::cannotTell);
    const auto words = categoryWords(session, rows);
    EXPECT_FALSE(words[0].expanded);
    EXPECT_EQ(words[0].chevron, "chevron.down");
    EXPECT_TRUE(words[1].expanded);
    EXPECT_EQ(words[1].chevron, "chevron.up");
}

TEST(CategoryWords, BadgeIsTheDefaultUnlessFlipped) {
    const auto junk = Rule::Verdict::junk;
    const auto keep = Rule::Verdict::keep;
    const Mark byDefaultJunk{"JUNK", Tone::orange, ""};
    const Mark byDefaultKeep{"KEEP", Tone::green, ""};
    const std::string help =
        "Learned from your corrections - it overrides the model for this whole category. Change it "
        "under Rules.";
    const struct {
        Category category;
        std::optional<Rule::Verdict> flip;
        Mark badge;
    } rows[] = {
        {Category::newsletterOrDigest, std::nullopt, byDefaultJunk},
        {Category::newsletterOrDigest, keep, {"YOU KEEP THESE", Tone::green, help}},
        // A flip that says what the default says overrides nothing.
        {Category::newsletterOrDigest, junk, byDefaultJunk},
        {Category::accountWelcomeOrInvitation, std::nullopt, byDefaultKeep},
        {Category::accountWelcomeOrInvitation, junk, {"YOU JUNK THESE", Tone::orange, help}},
        {Category::accountWelcomeOrInvitation, keep, byDefaultKeep},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message()
                     << rawValue(row.category) << " "
                     << (row.flip ? rawValue(*row.flip) : std::string_view("as it is")));
        Session session;
        if (row.flip) session.flip(row.category, *row.flip);
        EXPECT_EQ(categoryWords(session, {{row.category, {0}, 1, {}}})[0].badge, row.badge);
    }
}

}  // namespace
}  // namespace brindlet
