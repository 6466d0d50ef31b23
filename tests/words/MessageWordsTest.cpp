#include <gtest/gtest.h>

#include "words/CategoryWords.h"
#include "words/Session.h"

namespace brindlet {
namespace {

Verdict sale() {
    return {
        7,     "sale@x.com", "Shop <shop@x.com>", "Sale", Category::advertisingOrPromotion, true,
        false, false};
}

TEST(MessageWords, SubjectAndSenderAsTheyAre) {
    Session session;
    const auto words = messageWords(session, sale());
    EXPECT_EQ(words.subject, "Sale");
    EXPECT_EQ(words.sender, "Shop <shop@x.com>");
}

TEST(MessageWords, AMessageWithoutASubjectSaysSo) {
    Session session;
    for (const std::string subject : {"", " ", "\t\n"}) {
        auto verdict = sale();
        verdict.subject = subject;
        EXPECT_EQ(messageWords(session, verdict).subject, "(no subject)");
    }
}

TEST(MessageWords, TheBoxShowsTheTick) {
    Session session;
    auto words = messageWords(session, sale());
    EXPECT_EQ(words.tickSymbol, "square");
    EXPECT_TRUE(words.canTick);
    EXPECT_EQ(words.tickHelp, "");
    session->approved.set({7});
    words = messageWords(session, sale());
    EXPECT_EQ(words.tickSymbol, "checkmark.square.fill");
}

TEST(MessageWords, WithoutAMessageIdTheBoxIsDashedWhateverIsTicked) {
    Session session;
    auto verdict = sale();
    verdict.messageID.reset();
    session->approved.set({7});
    const auto words = messageWords(session, verdict);
    EXPECT_EQ(words.tickSymbol, "minus.square.dashed");
    EXPECT_FALSE(words.canTick);
    EXPECT_EQ(words.tickHelp,
              "Mail has no id for this message, so Brindlet can't tick or move it. Everything else "
              "works as usual.");
}

TEST(MessageWords, MarkTellsJunkKeptAndProtected) {
    Session session;
    auto verdict = sale();
    EXPECT_EQ(messageWords(session, verdict).mark, (Mark{"JUNK", Tone::orange, ""}));
    verdict.isJunk = false;
    EXPECT_EQ(messageWords(session, verdict).mark, (Mark{"KEEP", Tone::green, ""}));
    verdict.vetoed = true;
    EXPECT_EQ(messageWords(session, verdict).mark, (Mark{"PROTECTED", Tone::green, ""}));
}

}  // namespace
}  // namespace brindlet
