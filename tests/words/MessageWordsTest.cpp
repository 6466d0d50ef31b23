#include "words/MessageWords.h"

#include <gtest/gtest.h>

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

TEST(MessageWords, ANoteStandsWhereTheTickIsNotWhatTheScanProposed) {
    const Mark none;
    const Mark stays{"Will stay put", Tone::green,
                     "Will stay put - Brindlet will remember this sender"};
    const Mark moves{"Will be moved", Tone::orange,
                     "Will be moved - and Brindlet will remember this sender"};
    const struct {
        MailFolder::Role role;
        bool isJunk;
        bool vetoed;
        bool ticked;
        Mark note;
    } rows[] = {
        {MailFolder::Role::inbox, true, false, true, none},
        {MailFolder::Role::inbox, true, false, false, stays},
        {MailFolder::Role::inbox, false, false, false, none},
        {MailFolder::Role::inbox, false, false, true, moves},
        {MailFolder::Role::inbox, false, true, false, none},
        {MailFolder::Role::inbox, false, true, true, moves},
        {MailFolder::Role::junk, true, false, false, none},
        {MailFolder::Role::junk, true, false, true, moves},
        {MailFolder::Role::junk, false, false, true, none},
        {MailFolder::Role::junk, false, false, false, stays},
        {MailFolder::Role::junk, false, true, false, stays},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << rawValue(row.role) << " junk " << row.isJunk
                                        << " protected " << row.vetoed << " ticked " << row.ticked);
        Session session;
        session.select(Session::folder(row.role));
        auto verdict = sale();
        verdict.isJunk = row.isJunk;
        verdict.vetoed = row.vetoed;
        if (row.ticked) session->approved.set({7});
        EXPECT_EQ(messageWords(session, verdict).note, row.note);
    }
}

TEST(MessageWords, WithoutAMessageIdThereIsNoNoteAndNothingToOpen) {
    Session session;
    auto verdict = sale();
    verdict.messageID.reset();
    EXPECT_EQ(messageWords(session, verdict).note, Mark{});
    EXPECT_EQ(messageWords(session, verdict).openHelp, "");
}

TEST(MessageWords, OpensInMailWhenTheIdMakesALink) {
    Session session;
    auto verdict = sale();
    EXPECT_EQ(messageWords(session, verdict).openHelp, "Open in Mail");
    for (const std::string id : {"", "a b@x.com", "a\x01@x.com", "\xFF@x.com"}) {
        verdict.messageID = id;
        EXPECT_EQ(messageWords(session, verdict).openHelp, "") << testing::PrintToString(id);
    }
}

}  // namespace
}  // namespace brindlet
