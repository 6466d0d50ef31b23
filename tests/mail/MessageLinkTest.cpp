#include <gtest/gtest.h>

#include "mail/MailHome.h"

namespace brindlet {
namespace {

TEST(MessageLink, EscapesAllButLettersDigitsAndAFewSigns) {
    const std::pair<const char*, const char*> rows[] = {
        {"a.b+c@x.example", "message://%3ca.b+c@x.example%3e"},
        {"50%/off@x", "message://%3c50%25%2Foff@x%3e"},
        {"-._~@!$&'()*+,;=", "message://%3c-._~@!$&'()*+,;=%3e"},
        {"a\"<>#?[]:", "message://%3ca%22%3C%3E%23%3F%5B%5D%3A%3e"},
        {"\u00e9", "message://%3c%C3%A9%3e"},
    };
    for (const auto& [id, link] : rows) EXPECT_EQ(MailStore::messageLink(id), link) << id;
}

TEST(MessageLink, ThereIsNoneForAnIdThatMakesNoAddress) {
    testing::MailHome home;
    const std::string ids[] = {"",           " ",
                               "a b@x",      "a\u00a0b@x",
                               "\u3000a@x",  "a@x\n",
                               "a\tb@x",     std::string("a\0b", 3),
                               "a\x7f@x",    "a\u0085b@x",
                               "a\x1b[0m@x", "\xff@x",
                               "a@x\xc3",    "\xed\xa0\x80@x"};
    for (const auto& id : ids) {
        EXPECT_EQ(MailStore::messageLink(id), std::nullopt) << ::testing::PrintToString(id);
        home.store.openInMail(id);
    }
    EXPECT_EQ(home.world.desktop.opened, std::vector<std::string>{});
}

TEST(MessageLink, IsHandedToTheDesktop) {
    testing::MailHome home;
    home.store.openInMail("a@b");
    EXPECT_EQ(home.world.desktop.opened, std::vector<std::string>{"message://%3ca@b%3e"});
}

}  // namespace
}  // namespace brindlet
