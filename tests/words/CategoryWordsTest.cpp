#include "words/CategoryWords.h"

#include <gtest/gtest.h>

#include "words/Session.h"

namespace brindlet {
namespace {

using Role = MailFolder::Role;
using Rows = std::vector<CategoryRows>;

Verdict verdict(std::int64_t id, Category category, bool isJunk = false, bool vetoed = false) {
    return {id, "m@x.com", "", "", category, isJunk, vetoed, false};
}

TEST(CategoryRows, OnlyCategoriesWithMessagesInTheirFixedOrder) {
    const VerdictList verdicts(
        {verdict(1, Category::cannotTell), verdict(2, Category::advertisingOrPromotion, true),
         verdict(3, Category::billOrPayment), verdict(4, Category::cannotTell)});
    EXPECT_EQ(categoryRows(verdicts), (Rows{{Category::advertisingOrPromotion, {1}, 1},
                                            {Category::billOrPayment, {2}, 1},
                                            {Category::cannotTell, {0, 3}, 2}}));
    EXPECT_EQ(categoryRows({}), Rows{});
}

TEST(CategoryRows, ProtectedComeLastAndTheScansOrderStays) {
    const auto ads = Category::advertisingOrPromotion;
    const VerdictList verdicts({verdict(9, ads, false, true), verdict(8, ads, true),
                                verdict(7, ads, false, true), verdict(6, ads, true)});
    EXPECT_EQ(categoryRows(verdicts), (Rows{{ads, {1, 3, 0, 2}, 2}}));
}

TEST(CategoryWords, HeaderHasLabelAndCount) {
    Session session;
    const Rows rows = {{Category::socialMediaBlast, std::vector<std::uint32_t>(1234), 1234}};
    const auto words = categoryWords(session, rows);
    ASSERT_EQ(words.size(), 1U);
    EXPECT_EQ(words[0].category, Category::socialMediaBlast);
    EXPECT_EQ(words[0].label, "Social notifications");
    EXPECT_EQ(words[0].count, "1,234");
    EXPECT_EQ(words[0].scroll, "1,234 messages · scroll to see them all");
    EXPECT_EQ(words[0].stayPut, "");
}

TEST(CategoryWords, TheOpenCategoryIsTheSessions) {
    Session session;
    const Rows rows = {{Category::socialMediaBlast, {0}, 1}, {Category::cannotTell, {1}, 1}};
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
        EXPECT_EQ(categoryWords(session, {{row.category, {0}, 1}})[0].badge, row.badge);
    }
}

TEST(CategoryWords, ProtectedMessagesHaveAHeading) {
    Session session;
    session.select(Session::folder(Role::inbox));
    const Rows rows = {{Category::advertisingOrPromotion, {0, 1}, 1}};
    EXPECT_EQ(categoryWords(session, rows)[0].stayPut,
              "These stay put - none of them will be moved");
}

TEST(CategoryWords, InAJunkFolderProtectedMessagesDoNotStayPut) {
    Session session;
    session.select(Session::folder(Role::junk));
    const Rows rows = {{Category::advertisingOrPromotion, {0, 1}, 1}};
    EXPECT_EQ(categoryWords(session, rows)[0].stayPut, "");
}

}  // namespace
}  // namespace brindlet
