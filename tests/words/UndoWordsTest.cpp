#include "words/UndoWords.h"

#include <gtest/gtest.h>

#include "words/Session.h"

namespace brindlet {
namespace {

TEST(UndoWords, ThereAreNoneWithoutASweep) {
    const Session session;
    EXPECT_FALSE(undoWords(session));
}

TEST(UndoWords, SayWhatWasDoneAndWhatUndoingDoes) {
    Session session;
    AppState::Sweep sweep;
    sweep.what = "ticked all ads & promotions";
    sweep.ids.resize(1234);
    session->lastSweep.set(sweep);
    const auto words = undoWords(session);
    ASSERT_TRUE(words);
    EXPECT_EQ(words->text, "ticked all ads & promotions");
    EXPECT_EQ(words->help, "Put those 1,234 messages back exactly as they were");
}

TEST(UndoWords, OneMessageIsWordedLikeSeveral) {
    Session session;
    AppState::Sweep sweep;
    sweep.ids = {7};
    session->lastSweep.set(sweep);
    EXPECT_EQ(undoWords(session)->help, "Put those 1 messages back exactly as they were");
}

}  // namespace
}  // namespace brindlet
