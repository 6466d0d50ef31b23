#include "words/UnsupportedWords.h"

#include <gtest/gtest.h>

#include "words/Session.h"

namespace brindlet {
namespace {

TEST(UnsupportedWords, AreTheModelsOwnTrouble) {
    const struct {
        ModelAvailability state;
        const char* text;
    } rows[] = {
        {ModelAvailability::deviceNotEligible,
         "This Mac can't run Apple Intelligence. Brindlet needs an Apple silicon Mac."},
        {ModelAvailability::notEnabled,
         "Turn on Apple Intelligence in System Settings, then reopen Brindlet."},
        {ModelAvailability::notReady,
         "macOS is still downloading the on-device model. Try again shortly."},
        {ModelAvailability::unavailable, "The on-device model isn't available right now."},
    };
    Session session;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        session.world.model.available = row.state;
        const auto words = unsupportedWords(session);
        ASSERT_TRUE(words);
        EXPECT_EQ(words->text, row.text);
    }
}

TEST(UnsupportedWords, AModelThatCanBeUsedNeedsNone) {
    Session session;
    EXPECT_EQ(unsupportedWords(session), std::nullopt);
}

}  // namespace
}  // namespace brindlet
