#include "classify/Classifier.h"

#include <gtest/gtest.h>

#include <thread>
#include <utility>
#include <vector>

#include "doubles/Doubles.h"

namespace brindlet {
namespace {

using doubles::ScriptedModel;

Category answered(std::optional<LanguageModel::Answer> answer) {
    ScriptedModel model;
    model.setScript([&](const ScriptedModel::Call&) { return answer; });
    return Classifier(model).classify("a@b.example", "Hello", "Body");
}

TEST(ClassifierPrompt, HasThreeLabelledPartsAndNothingElse) {
    EXPECT_EQ(Classifier::prompt("Ann <ann@x.example>", "Lunch?", "See you\nat one"),
              "FROM: Ann <ann@x.example>\nSUBJECT: Lunch?\nBODY:\nSee you\nat one");
}

TEST(ClassifierPrompt, EndsInTheBodyLabelAndItsLineBreakWhenTheBodyIsEmpty) {
    EXPECT_EQ(Classifier::prompt("", "", ""), "FROM: \nSUBJECT: \nBODY:\n");
}

TEST(ClassifierPrompt, TakesTheFieldsAsTheyStand) {
    EXPECT_EQ(Classifier::prompt(" \u00c9va\t", "BODY:\nx", " "),
              "FROM:  \u00c9va\t\nSUBJECT: BODY:\nx\nBODY:\n ");
}

TEST(ClassifierLabelSchema, ConstrainsOnePropertyToTheRawValuesInOrder) {
    const auto& schema = Classifier::labelSchema();
    EXPECT_EQ(schema.name, "Label");
    EXPECT_EQ(schema.description, "The single best category");
    ASSERT_EQ(schema.properties.size(), 1u);
    const auto& category = schema.properties[0];
    EXPECT_EQ(category.name, "category");
    EXPECT_EQ(category.description, "the category");
    EXPECT_EQ(category.typeName, "Category");
    EXPECT_EQ(category.typeDescription, "What kind of email this is");
    std::vector<std::string> words;
    for (const auto value : allCases<Category>()) words.emplace_back(rawValue(value));
    EXPECT_EQ(category.anyOf, words);
    EXPECT_EQ(&schema, &Classifier::labelSchema()) << "built once";
}

TEST(ClassifierClassify, AsksOnceWithInstructionsSchemaPromptAndOptions) {
    ScriptedModel model;
    model.setScript(ScriptedModel::always("socialMediaBlast"));
    EXPECT_EQ(Classifier(model).classify("a@b.example", "Hi", "There"), Category::socialMediaBlast);
    const auto calls = model.calls();
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].instructions, Classifier::instructions());
    EXPECT_EQ(calls[0].schema, "Label");
    EXPECT_EQ(calls[0].prompt, Classifier::prompt("a@b.example", "Hi", "There"));
    EXPECT_TRUE(calls[0].options.greedy);
    EXPECT_TRUE(calls[0].options.includeSchemaInPrompt);
}

TEST(ClassifierClassify, KnowsEveryCategoryWithBlanksAndLineBreaksAround) {
    for (const auto category : allCases<Category>()) {
        const std::string word(rawValue(category));
        for (const auto& answer : {word, " " + word + "\n", "\r\n\t" + word + "\u2029",
                                   "\u00a0\u3000" + word + "\u0085"})
            EXPECT_EQ(answered({{{"category", answer}}}), category) << '"' << answer << '"';
    }
}

TEST(ClassifierClassify, AnyOtherAnswerIsCannotTell) {
    const std::vector<std::pair<const char*, std::optional<LanguageModel::Answer>>> table{
        {"a refusal", std::nullopt},
        {"no property", LanguageModel::Answer{}},
        {"another property", {{{"Category", "billOrPayment"}}}},
        {"an empty word", {{{"category", ""}}}},
        {"other letter case", {{{"category", "BillOrPayment"}}}},
        {"all capitals", {{{"category", "BILLORPAYMENT"}}}},
        {"a sentence", {{{"category", "It is billOrPayment."}}}},
        {"two words", {{{"category", "billOrPayment billOrPayment"}}}},
        {"a blank of no width", {{{"category", "\u200bbillOrPayment"}}}},
    };
    for (const auto& [what, answer] : table)
        EXPECT_EQ(answered(answer), Category::cannotTell) << what;
}

TEST(ClassifierClassify, RefusedMessageIsAskedOnceAndNotJunk) {
    ScriptedModel model;
    model.setScript([](const ScriptedModel::Call&) { return std::nullopt; });
    const auto category = Classifier(model).classify("a@b.example", "Hi", "");
    EXPECT_EQ(category, Category::cannotTell);
    EXPECT_FALSE(isDefaultJunk(category));
    EXPECT_EQ(model.calls().size(), 1u);
}

TEST(ClassifierClassify, RunsFourAtOnce) {
    ScriptedModel model;
    model.setScript([](const ScriptedModel::Call& call) {
        const bool first = call.prompt.find("SUBJECT: 0\n") != std::string::npos;
        return LanguageModel::Answer{{"category", first ? "billOrPayment" : "newsletterOrDigest"}};
    });
    model.block();
    const Classifier classifier(model);
    std::vector<Category> found(4);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < 4; ++i)
        threads.emplace_back([&, i] { found[i] = classifier.classify("", std::to_string(i), ""); });
    model.waitForCalls(4);
    model.release();
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(model.mostInFlight(), 4);
    EXPECT_EQ(found, (std::vector{Category::billOrPayment, Category::newsletterOrDigest,
                                  Category::newsletterOrDigest, Category::newsletterOrDigest}));
}

TEST(ClassifierAvailability, SaysWhyTheModelCannotBeUsed) {
    const std::pair<ModelAvailability, std::string_view> table[] = {
        {ModelAvailability::available, ""},
        {ModelAvailability::deviceNotEligible,
         "This Mac can't run Apple Intelligence. Brindlet needs an Apple silicon Mac."},
        {ModelAvailability::notEnabled,
         "Turn on Apple Intelligence in System Settings, then reopen Brindlet."},
        {ModelAvailability::notReady,
         "macOS is still downloading the on-device model. Try again shortly."},
        {ModelAvailability::unavailable, "The on-device model isn't available right now."},
    };
    for (const auto& [state, words] : table) {
        ScriptedModel model;
        model.available = state;
        EXPECT_EQ(Classifier(model).availabilityProblem(), words);
    }
}

}  // namespace
}  // namespace brindlet
