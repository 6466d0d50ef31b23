#include <gtest/gtest.h>

#include "base/Json.h"
#include "stores/Rules.h"
#include "stores/StoreWorld.h"

namespace brindlet {
namespace {

/// A rule's object with some members replaced, added or, by an empty text, left out.
std::string ruleJson(const std::map<std::string, std::string>& changes = {}) {
    std::map<std::string, std::string> members = {
        {"sender", R"("shop.example")"}, {"verdict", R"("junk")"},
        {"scope", R"("always")"},        {"hits", "2"},
        {"created", "721692800"},        {"example", R"("Sale")"},
    };
    for (const auto& [key, value] : changes) members[key] = value;
    std::string text;
    for (const auto& [key, value] : members)
        if (!value.empty()) text += (text.empty() ? "" : ",") + ("\"" + key + "\":" + value);
    return "{" + text + "}";
}

std::vector<Rule> loaded(const std::string& json) {
    StoreWorld world;
    world.put("rules.json", json);
    return Rules(world.services()).combined();
}

TEST(RulesFile, ReadsEveryField) {
    const auto rules = loaded(R"([{
        "sender": "bob@shop.example", "category": "billOrPayment", "verdict": "keep",
        "scope": "session", "hits": 9007199254740993, "created": 721692800.123456,
        "example": "Re: caf\u00e9 \/ \ud83d\ude00", "template": ["your", "bill"], "legacy": true,
        "unknown": {"deep": [1, 2, {"x": null}]}
    }])");
    ASSERT_EQ(rules.size(), 1u);
    Rule expected;
    expected.sender = "bob@shop.example";
    expected.category = "billOrPayment";
    expected.verdict = Rule::Verdict::keep;
    expected.scope = Rule::Scope::session;
    expected.hits = 9007199254740993;
    expected.created = {721692800.123456};
    expected.example = "Re: café / 😀";
    expected.templateWords = {"your", "bill"};
    expected.legacy = true;
    EXPECT_EQ(rules[0], expected);
}

TEST(RulesFile, AbsentOrNullOptionalFieldsTakeTheirDefaults) {
    for (const char* value : {"", "null"}) {
        SCOPED_TRACE(value);
        const auto rules = loaded(
            "[" + ruleJson({{"category", value}, {"template", value}, {"legacy", value}}) + "]");
        ASSERT_EQ(rules.size(), 1u);
        EXPECT_EQ(rules[0].category, std::nullopt);
        EXPECT_EQ(rules[0].scope, Rule::Scope::always);
        EXPECT_TRUE(rules[0].templateWords.empty());
        EXPECT_FALSE(rules[0].legacy);
    }
}

TEST(RulesFile, HoldsBackRulesFromBeforeThereWereScopes) {
    const struct {
        const char* scope;
        const char* legacy;
        bool held;
    } rows[] = {
        {"", "", true},
        {"", "null", true},
        {"", "false", false},
        {"", "true", true},
        {R"("always")", "", false},
        {R"("session")", "", false},
        {R"("always")", "true", true},
        // The key is there, so the file knows of scopes.
        {"null", "", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.scope) + " " + row.legacy);
        const auto rules =
            loaded("[" + ruleJson({{"scope", row.scope}, {"legacy", row.legacy}}) + "]");
        ASSERT_EQ(rules.size(), 1u);
        EXPECT_EQ(rules[0].legacy, row.held);
    }
    StoreWorld world;
    world.put("rules.json",
              "[" + ruleJson({{"scope", ""}}) + "," + ruleJson({{"scope", ""}}) + "]");
    const Rules rules(world.services());
    EXPECT_EQ(rules.all->size(), 2u);
    EXPECT_EQ(rules.held().size(), 2u);
}

TEST(RulesFile, AHeldRuleStaysHeldWhenItIsSavedAgain) {
    StoreWorld world;
    world.put("rules.json", "[" + ruleJson({{"scope", ""}}) + "]");
    {
        Rules rules(world.services());
        rules.add("ann@b.example", std::nullopt, Rule::Verdict::keep, Rule::Scope::always, "x", {});
    }
    const Rules rules(world.services());
    EXPECT_EQ(rules.held().size(), 1u);
    EXPECT_EQ(rules.live().size(), 1u);
}

TEST(RulesFile, OneBadRuleFailsTheWholeFile) {
    const std::map<std::string, std::string> badChanges[] = {
        {{"sender", ""}},
        {{"sender", "null"}},
        {{"sender", "5"}},
        {{"category", "5"}},
        {{"verdict", ""}},
        {{"verdict", "null"}},
        {{"verdict", R"("Junk")"}},
        {{"verdict", R"("spam")"}},
        {{"verdict", "0"}},
        {{"scope", R"("forever")"}},
        {{"scope", "1"}},
        {{"hits", ""}},
        {{"hits", "null"}},
        {{"hits", R"("5")"}},
        {{"hits", "1.5"}},
        {{"hits", "9223372036854775808"}},
        {{"hits", "true"}},
        {{"created", ""}},
        {{"created", "null"}},
        {{"created", R"("2024-01-01")"}},
        {{"created", "1e999"}},
        {{"example", ""}},
        {{"example", "null"}},
        {{"example", "[]"}},
        {{"template", R"("your bill")"}},
        {{"template", "[1]"}},
        {{"template", "[null]"}},
        {{"legacy", "1"}},
        {{"legacy", R"("true")"}},
        {{"sender", "\"\xff\""}},
        {{"unknown", "{\"a\":tru}"}},
    };
    for (const auto& changes : badChanges) {
        const auto json = "[" + ruleJson() + "," + ruleJson(changes) + "]";
        EXPECT_TRUE(loaded(json).empty()) << json;
    }
    EXPECT_EQ(loaded("[" + ruleJson() + "]").size(), 1u);
    EXPECT_EQ(loaded(" [ " + ruleJson({{"hits", "2.0"}}) + " ] \n").at(0).hits, 2);
}

TEST(RulesFile, DamageEmptiesTheStoreAndTheNextSaveOverwritesIt) {
    std::vector<std::string> texts(std::begin(damagedTexts), std::end(damagedTexts));
    texts.push_back("{}");
    texts.push_back("[" + ruleJson() + "]]");
    texts.push_back("[" + ruleJson() + ",]");
    const auto whole = "[" + ruleJson() + "," + ruleJson() + "]";
    for (std::size_t length = 0; length < whole.size(); ++length)
        texts.push_back(whole.substr(0, length));
    StoreWorld world;
    for (const auto& text : texts) {
        SCOPED_TRACE(text);
        world.put("rules.json", text);
        Rules rules(world.services());
        EXPECT_TRUE(rules.combined().empty());
        EXPECT_EQ(world.text("rules.json"), text) << "loading leaves the file alone";
        EXPECT_FALSE(world.has("rules.json.unreadable"));
        rules.add("ann@b.example", std::nullopt, Rule::Verdict::keep, Rule::Scope::always, "x", {});
        EXPECT_EQ(Rules(world.services()).combined(), rules.combined());
    }
}

TEST(RulesFile, TellsTheScopesApartAgain) {
    StoreWorld world;
    world.put("rules.json",
              "[" + ruleJson({{"sender", R"("a.example")"}}) + "," +
                  ruleJson({{"sender", R"("b.example")"}, {"scope", R"("session")"}}) + "," +
                  ruleJson({{"sender", R"("c.example")"}}) + "]");
    const Rules rules(world.services());
    ASSERT_EQ(rules.all->size(), 2u);
    EXPECT_EQ((*rules.all)[0].sender, "a.example");
    EXPECT_EQ((*rules.all)[1].sender, "c.example");
    ASSERT_EQ(rules.session->size(), 1u);
    EXPECT_EQ((*rules.session)[0].sender, "b.example");
}

TEST(RulesFile, RepairsDomainsThatStandAsAddresses) {
    StoreWorld world;
    const std::string byHand = R"("added by hand")";
    world.put("rules.json",
              "[" + ruleJson({{"sender", R"("x@shop.example")"}, {"example", byHand}}) + "," +
                  ruleJson({{"sender", R"("x@shop.example")"}}) + "," +
                  ruleJson({{"sender", R"("xx@shop.example")"}, {"example", byHand}}) + "]");
    const auto senders = [&](const Rules& rules) {
        std::vector<std::string> names;
        for (const Rule& rule : *rules.all) names.push_back(rule.sender);
        return names;
    };
    const std::vector<std::string> repaired = {"shop.example", "x@shop.example", "xx@shop.example"};
    EXPECT_EQ(senders(Rules(world.services())), repaired);
    EXPECT_EQ(world.text("rules.json").find("\"x@shop.example\""),
              world.text("rules.json").rfind("\"x@shop.example\""))
        << "the repair was written at once";
    EXPECT_EQ(senders(Rules(world.services())), repaired);
}

TEST(RulesFile, IsNotWrittenByALoadThatRepairsNothing) {
    StoreWorld world;
    const auto json = "[ " + ruleJson() + " ]";
    world.put("rules.json", json);
    EXPECT_EQ(Rules(world.services()).all->size(), 1u);
    EXPECT_EQ(world.text("rules.json"), json);
}

TEST(RulesFile, LeavesOutAnEmptyCategoryAndEscapesTheSlash) {
    StoreWorld world;
    Rules rules(world.services());
    rules.add("ann@b.example", std::nullopt, Rule::Verdict::keep, Rule::Scope::always, "a/b é", {});
    const auto text = world.text("rules.json");
    EXPECT_EQ(text.find("category"), std::string::npos) << text;
    EXPECT_EQ(text.find("null"), std::string::npos) << text;
    EXPECT_NE(text.find(R"("a\/b é")"), std::string::npos) << text;
    for (const char* key : {"\"scope\"", "\"template\"", "\"legacy\""})
        EXPECT_NE(text.find(key), std::string::npos) << key;
}

}  // namespace
}  // namespace brindlet
