#include "models/embedded/MailText.h"

#include <gtest/gtest.h>

#include <string>

namespace brindlet {
namespace {

TEST(SplitPrompt, GivesTheThreeTexts) {
    const MailText mail = splitPrompt("FROM: Ada <a@b.test>\nSUBJECT: Tea\nBODY:\nAt four.");
    EXPECT_EQ(mail.sender, "Ada <a@b.test>");
    EXPECT_EQ(mail.subject, "Tea");
    EXPECT_EQ(mail.body, "At four.");
}

TEST(SplitPrompt, AnEmptyBodyIsEmpty) {
    const MailText mail = splitPrompt("FROM: a@b.test\nSUBJECT: Tea\nBODY:\n");
    EXPECT_EQ(mail.subject, "Tea");
    EXPECT_EQ(mail.body, "");
}

TEST(SplitPrompt, LabelsCountAtTheStartOfALineAndOnce) {
    const MailText mail =
        splitPrompt("FROM: a SUBJECT: b\nSUBJECT: c BODY: d\nBODY:\ne\nSUBJECT: f\nBODY:\ng");
    EXPECT_EQ(mail.sender, "a SUBJECT: b");
    EXPECT_EQ(mail.subject, "c BODY: d");
    EXPECT_EQ(mail.body, "e\nSUBJECT: f\nBODY:\ng");
}

TEST(SplitPrompt, ATextWithoutLabelsIsAllBody) {
    EXPECT_EQ(splitPrompt("just words").body, "just words");
    EXPECT_EQ(splitPrompt("just words").subject, "");
    EXPECT_EQ(splitPrompt("").body, "");
}

TEST(SplitPrompt, AMissingLabelLeavesItsTextEmpty) {
    EXPECT_EQ(splitPrompt("FROM: a\nSUBJECT: b").subject, "b");
    EXPECT_EQ(splitPrompt("SUBJECT: b\nBODY:\nc").body, "c");
    EXPECT_EQ(splitPrompt("SUBJECT: b\nBODY:\nc").sender, "");
}

TEST(SplitPrompt, LongTextsAreCut) {
    const std::string longText(1 << 20, 'x');
    const std::string prompt =
        "FROM: " + longText + "\nSUBJECT: " + longText + "\nBODY:\n" + longText;
    const MailText mail = splitPrompt(prompt);
    EXPECT_EQ(mail.sender.size(), 512U);
    EXPECT_EQ(mail.subject.size(), 512U);
    EXPECT_EQ(mail.body.size(), 6000U);
}

}  // namespace
}  // namespace brindlet
