#include "sample/MessageParts.h"

#include <gtest/gtest.h>

#include "sample/MimeText.h"

namespace brindlet::sample {
namespace {

class MessageParts : public testing::Test {
  protected:
    MessageParts() {
        letter_.subject = "Tea & cake";
        letter_.paragraphs = {"Come at <four>.", "Bring nothing."};
        letter_.senderName = "Larkmoor";
        letter_.senderDomain = "larkmoor.example";
        letter_.key = 3;
    }

    const SampleTexts texts_;
    const Family& family_ = texts_.families().front();
    const Person person_{"Robin Ashdown", "robin@fernhill.example"};
    const Filling filling_{texts_.words(), 3, person_, person_, 1'700'000'000};
    const Filler filler_{texts_, family_, filling_};
    Letter letter_;
};

TEST_F(MessageParts, ReachTheSizeAskedFor) {
    for (const bool machineSent : {true, false})
        for (const std::size_t size : {8'000u, 20'000u, 90'000u}) {
            letter_.machineSent = machineSent;
            const std::string html = htmlPart(letter_, filler_, texts_.style(), "utf-8", size);
            const std::string plain = plainPart(letter_, filler_, size);
            EXPECT_NEAR(static_cast<double>(html.size()), static_cast<double>(size), 1'500);
            EXPECT_NEAR(static_cast<double>(plain.size()), static_cast<double>(size), 600);
        }
}

TEST_F(MessageParts, NeverDropTheLetterItself) {
    const std::string plain = plainPart(letter_, filler_, 0);
    EXPECT_TRUE(plain.starts_with("Come at <four>.\n\nBring nothing.\n\n"));
    const std::string html = htmlPart(letter_, filler_, texts_.style(), "utf-8", 0);
    EXPECT_NE(html.find("Come at &lt;four&gt;."), std::string::npos);
    EXPECT_NE(html.find("charset=utf-8"), std::string::npos);
}

TEST_F(MessageParts, OnlyCompaniesHaveMastheadAndFooter) {
    letter_.machineSent = true;
    EXPECT_NE(htmlPart(letter_, filler_, "", "utf-8", 0).find("<h1>Tea &amp; cake</h1>"),
              std::string::npos);
    EXPECT_NE(plainPart(letter_, filler_, 0).find("\nUnsubscribe: https://links.larkmoor.example/"),
              std::string::npos);
    letter_.machineSent = false;
    EXPECT_EQ(htmlPart(letter_, filler_, "", "utf-8", 0).find("<h1>"), std::string::npos);
    EXPECT_EQ(plainPart(letter_, filler_, 0).find("Unsubscribe"), std::string::npos);
}

TEST(Typeset, QuotesAndDashesLeaveAscii) {
    EXPECT_EQ(typeset("\"It's late\" - (\"so\")"),
              "\u201cIt\u2019s late\u201d \u2013 (\u201cso\u201d)");
    EXPECT_EQ(typeset("a-b - c"), "a-b \u2013 c");
    EXPECT_TRUE(isAscii(typeset("plain, with no marks.")));
}

TEST(Token, HasItsLengthAndDependsOnTheKey) {
    for (const std::size_t length : {0u, 1u, 10u, 11u, 200u})
        EXPECT_EQ(token(5, length).size(), length);
    EXPECT_EQ(token(5, 20), token(5, 20));
    EXPECT_NE(token(5, 20), token(6, 20));
}

}  // namespace
}  // namespace brindlet::sample
