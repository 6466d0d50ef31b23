#include <gtest/gtest.h>

#include "stores/Rules.h"

namespace brindlet {
namespace {

TEST(SenderKey, KeepsAPersonAndWidensABulkSender) {
    const struct {
        const char* sender;
        const char* key;
    } rows[] = {
        // Short and plain: a person, also at a shop's own domain.
        {"bob@shop.example", "bob@shop.example"},
        {"Bob Smith <Bob.Smith@Shop.Example>", "bob.smith@shop.example"},
        {"abcdefghijklmn@shop.example", "abcdefghijklmn@shop.example"},
        // Fifteen characters, a digit or a plus: a machine.
        {"abcdefghijklmno@shop.example", "shop.example"},
        {"bob7@shop.example", "shop.example"},
        {"bob٣@shop.example", "shop.example"},
        {"bob²@shop.example", "bob²@shop.example"},
        {"bob+news@shop.example", "shop.example"},
        // Everyone is a person at the eight public mail domains, and at no other.
        {"bob.from.somewhere+77@gmail.com", "bob.from.somewhere+77@gmail.com"},
        {"x7@Hotmail.com", "x7@hotmail.com"},
        {"x7@outlook.com", "x7@outlook.com"},
        {"x7@yahoo.com", "x7@yahoo.com"},
        {"x7@icloud.com", "x7@icloud.com"},
        {"x7@me.com", "x7@me.com"},
        {"x7@aol.com", "x7@aol.com"},
        {"x7@proton.me", "x7@proton.me"},
        {"x7@googlemail.com", "googlemail.com"},
        {"x7@live.com", "live.com"},
        {"x7@protonmail.com", "protonmail.com"},
        {"x7@mail.gmail.com", "mail.gmail.com"},
        // The last pair of brackets, if the closing one comes later.
        {"\"a <b@c.example>\" <d@e.example>", "d@e.example"},
        {"> d@e.example <", "> d@e.example"},
        {"Shop <news7@shop.example", "shop.example"},
        {"a@b@shop.example", "a@b@shop.example"},
        {"<>", ""},
        {"", ""},
        // The domain ends at a bracket or a blank.
        {"bob7@shop.example>, more", "shop.example"},
        {"bob7@shop.example\u00a0x", "shop.example"},
        {"bob@", ""},
        {"bob@ shop.example", ""},
        // Typed by hand.
        {"Shop.Example", "shop.example"},
        {"@Shop.Example", "shop.example"},
        {"@gmail.com", "gmail.com"},
        {" \tshop.example ", "shop.example"},
        {"shop .example", ""},
        {"example", ""},
        {"Émile@Été.Example", "émile@été.example"},
    };
    for (const auto& row : rows) EXPECT_EQ(Rules::senderKey(row.sender), row.key) << row.sender;
}

TEST(SenderKey, CountsTheLocalPartInCharacters) {
    EXPECT_EQ(Rules::senderKey("abcdefghijklme\u0301@shop.example"),
              "abcdefghijklme\u0301@shop.example");
    EXPECT_EQ(Rules::senderKey("abcdefghijklmne\u0301@shop.example"), "shop.example");
}

TEST(SenderKey, KeepsBlanksAndNamesBeforeAnAddressWithoutBrackets) {
    EXPECT_EQ(Rules::senderKey("  bob@x.example"), "  bob@x.example");
    EXPECT_EQ(Rules::senderKey("Bob Smith bob@x.example"), "bob smith bob@x.example");
    EXPECT_EQ(Rules::senderKey("Bob Smithson bob@x.example"), "x.example") << "15 characters";
}

}  // namespace
}  // namespace brindlet
