#include "words/SenderWords.h"

#include <gtest/gtest.h>

#include "words/Session.h"

namespace brindlet {
namespace {

TEST(SenderWords, DisplayedNameIsWhatStandsBeforeTheAddress) {
    const std::pair<const char*, const char*> rows[] = {
        {"Harbor & Pine <hello@harborpine.example>", "Harbor & Pine"},
        {"  Harbor  <hello@harborpine.example>", "Harbor"},
        {"\"Pine, Harbor & Co\" <hello@harborpine.example>", "Pine, Harbor & Co"},
        {"A <b> C <hello@harborpine.example>", "A <b> C"},
        {"שלום <shalom@x.example>", "שלום"},
        {"\" \" <hello@x.example>", ""},
        {"\" <hello@x.example>", "\""},
        {"<hello@x.example>", ""},
        {"hello@x.example", ""},
        {"Shop Team", ""},
        {"Shop <hello@x.example", ""},
        {"", ""},
    };
    for (const auto& [raw, name] : rows) EXPECT_EQ(displayedName(raw), name) << raw;
}

SenderFacts harbor() {
    return {"harborpine.example", "Harbor & Pine <hello@harborpine.example>", 25, {0, 24}, false};
}

TEST(SenderWords, NamedByTheFirstMessageWithTheKeyBelow) {
    const Session session;
    auto facts = harbor();
    auto words = senderWords(session, facts);
    EXPECT_EQ(words.title, "Harbor & Pine");
    EXPECT_EQ(words.detail, "harborpine.example");
    facts.firstSender = "hello@harborpine.example";
    words = senderWords(session, facts);
    EXPECT_EQ(words.title, "harborpine.example");
    EXPECT_EQ(words.detail, "") << "once is enough";
}

TEST(SenderWords, BoxHelpAndCountFollowTheTicks) {
    const struct {
        TickCount ticks;
        const char* symbol;
        const char* help;
        const char* count;
        bool canTick;
    } rows[] = {
        {{0, 1240}, "square", "Tick everything from this sender", "1,250", true},
        {{1230, 1240},
         "minus.square.fill",
         "Tick everything from this sender",
         "1,230 of 1,250",
         true},
        {{1240, 1240},
         "checkmark.square.fill",
         "Untick everything from this sender",
         "1,250",
         true},
        {{0, 0}, "minus.square.dashed", "", "1,250", false},
    };
    const Session session;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.symbol);
        auto facts = harbor();
        facts.messages = 1250;
        facts.ticks = row.ticks;
        const auto words = senderWords(session, facts);
        EXPECT_EQ(words.tickSymbol, row.symbol);
        EXPECT_EQ(words.tickHelp, row.help);
        EXPECT_EQ(words.count, row.count);
        EXPECT_EQ(words.canTick, row.canTick);
    }
}

TEST(SenderWords, ChevronPointsToWhatAClickDoes) {
    const Session session;
    auto facts = harbor();
    EXPECT_EQ(senderWords(session, facts).chevron, "chevron.down");
    facts.expanded = true;
    EXPECT_EQ(senderWords(session, facts).chevron, "chevron.up");
}

TEST(SenderWords, ReviewIsRememberedByTheKey) {
    Session session;
    session->reviewed.set({"harborpine.example", "other.example"});
    EXPECT_EQ(senderWords(session, harbor()).reviewed, (ReviewWords{"Reviewed", ""}));
    session->reviewed.set({"other.example", "harborpine.example"});
    EXPECT_EQ(senderWords(session, harbor()).reviewed,
              (ReviewWords{"Last reviewed", "Last reviewed - click to jump there"}));
}

}  // namespace
}  // namespace brindlet
