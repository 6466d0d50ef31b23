#include "words/ResumeWords.h"

#include <gtest/gtest.h>

#include <limits>

#include "words/Session.h"

namespace brindlet {
namespace {

PendingMove move(const std::string& folder, std::int64_t done, std::size_t left) {
    PendingMove made;
    made.account = "ann@x.com";
    made.source = "Elsewhere";
    made.folderLabel = folder;
    made.destination = "Brindlet Junk";
    made.done = done;
    made.remaining.resize(left);
    return made;
}

TEST(ResumeWords, ThereAreNoneWithoutAMoveToFinish) {
    const Session session;
    EXPECT_FALSE(resumeWords(session));
}

TEST(ResumeWords, TellHowFarTheMoveGot) {
    struct Row {
        PendingMove move;
        const char* line;
    };
    const std::vector<Row> rows = {
        {move("INBOX", 412, 1422), "INBOX reached 412 of 1,834 - 1,422 still to go."},
        {move("INBOX", 0, 1), "INBOX reached 0 of 1 - 1 still to go."},
        {move("דואר נכנס", 1000, 24), "דואר נכנס reached 1,000 of 1,024 - 24 still to go."},
        {move("", 1, 1), " reached 1 of 2 - 1 still to go."},
        {move("X", std::numeric_limits<std::int64_t>::max(), 1),
         "X reached 9,223,372,036,854,775,807 of 9,223,372,036,854,775,807 - 1 still to go."},
    };
    for (const auto& row : rows) {
        Session session;
        session->interrupted.begin(row.move);
        ASSERT_TRUE(resumeWords(session));
        EXPECT_EQ(resumeWords(session)->line, row.line);
    }
}

}  // namespace
}  // namespace brindlet
