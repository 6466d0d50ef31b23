#include <gtest/gtest.h>

#include "stores/Seen.h"
#include "stores/StoreWorld.h"

namespace brindlet {
namespace {

constexpr auto whole =
    R"({"a@x":{"junk":true,"when":721692800.123456,"account":"Home","folder":"INBOX"}})";

TEST(SeenFile, ReadsEveryField) {
    StoreWorld world;
    world.put("seen.json", R"({
        "caf\u00e9\/1@x" : {"junk":true, "when":721692800.123456, "account":"Home",
                            "folder":"Archiv\/2024", "more":{"a":[null]}},
        "b@x" : {"when":5, "junk":false, "account":null},
        "c@x" : {"junk":false, "when":-0.5, "folder":"Only"}
    })");
    const Seen seen(world.services());
    EXPECT_EQ(seen.size(), 3u);
    EXPECT_EQ(seen.find("café/1@x"),
              (Seen::Entry{true, {721692800.123456}, "Home", "Archiv/2024"}));
    EXPECT_EQ(seen.find("b@x"), (Seen::Entry{false, {5}, std::nullopt, std::nullopt}));
    EXPECT_EQ(seen.find("c@x"), (Seen::Entry{false, {-0.5}, std::nullopt, "Only"}));
    EXPECT_EQ(seen.find("d@x"), std::nullopt);
    EXPECT_EQ(seen.find(""), std::nullopt);
}

TEST(SeenFile, TheLastOfTwoEqualKeysCounts) {
    StoreWorld world;
    world.put("seen.json", R"({"a":{"junk":true,"when":1,"account":"A","folder":"F"},
                               "a":{"junk":false,"when":2,"account":"A","folder":"F"}})");
    const Seen seen(world.services());
    EXPECT_EQ(seen.size(), 1u);
    EXPECT_EQ(seen.find("a")->junk, false);
    EXPECT_EQ(seen.count("A", "F"), 1);
    EXPECT_EQ(seen.junkCount("A", "F"), 0);
}

TEST(SeenFile, AnEmptyKeyIsLeftOut) {
    StoreWorld world;
    world.put("seen.json", R"({"":{"junk":true,"when":1},"a":{"junk":true,"when":1}})");
    const Seen seen(world.services());
    EXPECT_EQ(seen.size(), 1u);
    EXPECT_EQ(seen.find(""), std::nullopt);
}

TEST(SeenFile, DamageEmptiesTheListAndTheNextSaveOverwritesIt) {
    std::vector<std::string> texts(std::begin(damagedTexts), std::end(damagedTexts));
    texts.push_back("[]");
    for (std::size_t length = 0; length < std::string(whole).size(); ++length)
        texts.push_back(std::string(whole).substr(0, length));
    for (const char* entry :
         {"null", "true", "[]", "{}", R"({"junk":true})", R"({"when":1})",
          R"({"junk":null,"when":1})", R"({"junk":1,"when":1})", R"({"junk":"true","when":1})",
          R"({"junk":true,"when":null})", R"({"junk":true,"when":"1"})",
          R"({"junk":true,"when":1e999})", R"({"junk":true,"when":1,"account":5})",
          R"({"junk":true,"when":1,"folder":["INBOX"]})",
          "{\"junk\":true,\"when\":1,\"folder\":\"\xe9\"}"})
        texts.push_back(R"({"a":{"junk":true,"when":1},"b":)" + std::string(entry) + "}");
    texts.push_back(std::string(whole) + "}");
    StoreWorld world;
    for (const auto& text : texts) {
        SCOPED_TRACE(text);
        world.put("seen.json", text);
        Seen seen(world.services());
        EXPECT_EQ(seen.size(), 0u);
        EXPECT_EQ(world.text("seen.json"), text);
        EXPECT_FALSE(world.has("seen.json.unreadable"));
        seen.mark({"b"}, true, "Home", "INBOX");
        EXPECT_EQ(Seen(world.services()).entries(), seen.entries());
    }
}

TEST(SeenFile, ComesBackTheSameAfterTwoRounds) {
    StoreWorld world;
    world.clock.set({721692800.123456});
    {
        Seen seen(world.services());
        seen.mark({{"a/b\"\\\n\u0001é@x", true}, {"b", false}}, "Home/“x”", "INBOX");
        world.clock.advance(0.1);
        seen.mark({"c"}, true, std::nullopt, std::nullopt);
        seen.mark({"d"}, false, "", "");
    }
    const auto first = Seen(world.services()).entries();
    const auto text = world.text("seen.json");
    {
        Seen seen(world.services());
        seen.mark(std::vector<std::string>(), true, std::nullopt, std::nullopt);
    }
    EXPECT_EQ(Seen(world.services()).entries(), first);
    EXPECT_EQ(world.text("seen.json"), text);
    EXPECT_EQ(text.find("null"), std::string::npos);
    EXPECT_NE(text.find("a\\/b"), std::string::npos);
    EXPECT_NE(text.find("721692800.123456"), std::string::npos);
}

TEST(SeenFile, HoldsMoreThanOnePieceOfTheWriter) {
    StoreWorld world;
    std::vector<std::pair<std::string, bool>> items;
    for (int i = 0; i < 20'000; ++i)
        items.emplace_back("message-" + std::to_string(i * 7919) + "@mail.example", i % 3 == 0);
    Seen seen(world.services());
    seen.mark(items, "Home", "INBOX");
    const Seen reloaded(world.services());
    EXPECT_GT(world.text("seen.json").size(), 3u * 256 * 1024);
    EXPECT_EQ(reloaded.entries(), seen.entries());
    EXPECT_EQ(reloaded.count("Home", "INBOX"), 20'000);
    EXPECT_EQ(reloaded.junkCount("Home", "INBOX"), 6'667);
}

}  // namespace
}  // namespace brindlet
