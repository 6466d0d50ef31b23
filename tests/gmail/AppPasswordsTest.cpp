#include "gmail/GmailWorld.h"

namespace brindlet {
namespace {

using Calls = std::vector<std::string>;

struct Passwords {
    MapKeyStore keys;
    TranscriptConnector connector{std::vector<Transcript>{}};
    Gmail gmail{keys, connector};

    std::optional<std::string> read(const std::string& address) {
        const auto secret = gmail.readAppPassword(address);
        return secret ? std::optional(std::string(secret->text())) : std::nullopt;
    }
};

TEST(AppPasswords, AreKeptWithoutTheBlanksBetweenTheirGroups) {
    const struct {
        const char* typed;
        const char* kept;
    } rows[] = {
        {"abcd efgh ijkl mnop", password},
        {password, password},
        {"  abcdefgh  ijklmnop  ", password},
        {"a", "a"},
        // The one blank that counts is the plain one.
        {"abcd\tefgh", "abcd\tefgh"},
        {"abcd\xC2\xA0"
         "efgh",
         "abcd\xC2\xA0"
         "efgh"},
        {"\n", "\n"},
    };
    for (const auto& row : rows) {
        Passwords world;
        world.gmail.saveAppPassword(signIn(row.typed));
        EXPECT_EQ(world.keys.kept(service, ann), row.kept) << row.typed;
        EXPECT_EQ(world.read(ann), row.kept) << row.typed;
    }
}

TEST(AppPasswords, NothingButBlanksLeavesTheOldOne) {
    for (const auto* const typed : {"", " ", "    "}) {
        Passwords world;
        world.keys.keep(service, ann, "old");
        world.gmail.saveAppPassword(signIn(typed));
        EXPECT_EQ(world.keys.kept(service, ann), "old");
        EXPECT_TRUE(world.keys.calls().empty());
    }
}

TEST(AppPasswords, ANewOneTakesTheOldOnesPlace) {
    Passwords world;
    world.gmail.saveAppPassword(signIn("old"));
    world.gmail.saveAppPassword(signIn("new"));
    EXPECT_EQ(world.read(ann), "new");
}

TEST(AppPasswords, BelongToTheirExactAddressAndToThisService) {
    Passwords world;
    world.gmail.saveAppPassword(signIn("hers"));
    world.gmail.saveAppPassword(signIn("his", "bob@home.example"));
    world.keys.keep("another.service", "eve@home.example", "theirs");
    EXPECT_EQ(world.read(ann), "hers");
    EXPECT_EQ(world.read("bob@home.example"), "his");
    EXPECT_EQ(world.read("Ann@home.example"), std::nullopt);
    EXPECT_EQ(world.read("eve@home.example"), std::nullopt);
    world.gmail.forgetAppPassword("bob@home.example");
    EXPECT_EQ(world.read("bob@home.example"), std::nullopt);
    EXPECT_EQ(world.read(ann), "hers");
}

TEST(AppPasswords, AnAccountIsConnectedWhileThereIsOne) {
    Passwords world;
    EXPECT_FALSE(world.gmail.hasAppPassword(ann));
    world.keys.keep(service, ann, "");
    EXPECT_TRUE(world.gmail.hasAppPassword(ann));
    EXPECT_EQ(world.read(ann), "") << "an empty one is one";
    world.gmail.forgetAppPassword(ann);
    EXPECT_FALSE(world.gmail.hasAppPassword(ann));
}

TEST(AppPasswords, WhatIsNoUtf8IsRepaired) {
    Passwords world;
    world.keys.keep(service, ann,
                    "\xFF"
                    "ab\xE2\x82");
    EXPECT_EQ(world.read(ann),
              "\xEF\xBF\xBD"
              "ab\xEF\xBF\xBD");
}

TEST(AppPasswords, ASafeThatRefusesHoldsNothing) {
    Passwords world;
    world.keys.keep(service, ann, "old");
    world.keys.setRefuses(true);
    world.gmail.saveAppPassword(signIn(password));
    world.gmail.forgetAppPassword(ann);
    EXPECT_FALSE(world.gmail.hasAppPassword(ann));
    EXPECT_EQ(world.read(ann), std::nullopt);
    EXPECT_EQ(world.keys.kept(service, ann), "old");
}

TEST(AppPasswords, LookingAsksThePersonForNothing) {
    Passwords world;
    world.gmail.hasAppPassword(ann);
    world.gmail.readAppPassword(ann);
    const std::string item = std::string(service) + ' ' + ann;
    EXPECT_EQ(world.keys.calls(), (Calls{"has " + item, "read " + item}));
    EXPECT_TRUE(world.connector.made().empty()) << "and no server is asked";
}

}  // namespace
}  // namespace brindlet
