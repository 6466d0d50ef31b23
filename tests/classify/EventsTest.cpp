#include <gtest/gtest.h>

#include <map>
#include <utility>
#include <vector>

#include "classify/Classifier.h"
#include "doubles/Doubles.h"

namespace brindlet {
namespace {

using doubles::ScriptedModel;
using Answer = LanguageModel::Answer;
using Event = Classifier::Event;
using Indices = std::set<std::size_t>;

std::optional<Event> event(std::string_view subject, std::optional<Answer> answer) {
    ScriptedModel model;
    model.setScript([&](const ScriptedModel::Call&) { return answer; });
    return Classifier(model).event(subject);
}

TEST(EventSchema, HasTwoPlainStringProperties) {
    const auto& schema = Classifier::eventSchema();
    EXPECT_EQ(schema.name, "Event");
    EXPECT_EQ(schema.description, "what happened");
    ASSERT_EQ(schema.properties.size(), 2u);
    EXPECT_EQ(schema.properties[0].name, "action");
    EXPECT_EQ(schema.properties[0].description,
              "ONE word for what happened: commented, uploaded, subscribed, canceled, shipped, "
              "discounted, welcomed, alerted, invited, receipt");
    EXPECT_EQ(schema.properties[1].name, "object");
    EXPECT_EQ(schema.properties[1].description,
              "what it happened to, 1-4 words, keep the product or service, drop personal names, "
              "video titles and numbers");
    for (const auto& property : schema.properties) {
        EXPECT_TRUE(property.typeName.empty());
        EXPECT_TRUE(property.typeDescription.empty());
        EXPECT_TRUE(property.anyOf.empty());
    }
    EXPECT_EQ(&schema, &Classifier::eventSchema()) << "built once";
}

TEST(EventCall, SendsTheSubjectItselfAsThePrompt) {
    ScriptedModel model;
    Classifier(model).event("Your parcel \u2013 SHIPPED");
    const auto calls = model.calls();
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].instructions, Classifier::eventInstructions());
    EXPECT_EQ(calls[0].schema, "Event");
    EXPECT_EQ(calls[0].prompt, "Your parcel \u2013 SHIPPED");
    EXPECT_TRUE(calls[0].options.greedy);
    EXPECT_TRUE(calls[0].options.includeSchemaInPrompt);
}

TEST(EventCall, NoneWithoutAnAction) {
    EXPECT_FALSE(event("Hi", std::nullopt));
    EXPECT_FALSE(event("Hi", Answer{}));
    EXPECT_FALSE(event("Hi", Answer{{"object", "a video"}}));
    EXPECT_FALSE(event("Hi", Answer{{"action", ""}, {"object", "a video"}}));
}

TEST(EventCall, MissingObjectIsEmpty) {
    EXPECT_EQ(event("New upload", Answer{{"action", "Uploaded"}}), (Event{"uploa", {}}));
}

struct Row {
    const char* subject;
    const char* action;
    const char* object;
    Event expected;
};

TEST(EventStems, KeepWhatTheSubjectSays) {
    const std::vector<Row> table{
        // Only the words from the subject stay, when there are any.
        {"Your Garden Ads account was canceled",
         "canceled",
         "garden ads account",
         {"cance", {"garde", "ads", "accou"}}},
        {"Your Garden subscription", "canceled", "garden one video", {"cance", {"garde"}}},
        // Nothing from the subject: the lower-cased object stands, less its stop words.
        {"New upload", "uploaded", "a video", {"uploa", {"video"}}},
        {"New upload", "uploaded", "A VIDEO", {"uploa", {"video"}}},
        // A stem is enough: "commenting" in the subject keeps "comments" in the object.
        {"Ann is commenting", "Commented", "Comments channel", {"comme", {"comme"}}},
        // Stop words that the subject holds are kept first, then leave by their stems.
        {"New upload for you", "uploaded", "new video", {"uploa", {}}},
        {"Been there", "was", "been have your", {"was", {}}},
        // Blanks are any space separator and TAB; line breaks are not.
        {"x", "a", " red\u00a0blue\u3000\tgreen ", {"a", {"red", "blue", "green"}}},
        {"x", "a", "red\nblue", {"a", {"red\nb"}}},
        // Five characters, not five bytes: an accent apart counts with its letter.
        {"x",
         "e\u0301te\u0301e\u0301te\u0301",
         "\u00e9\u00e9\u00e9\u00e9\u00e9\u00e9",
         {"e\u0301te\u0301e\u0301t", {"\u00e9\u00e9\u00e9\u00e9\u00e9"}}},
        // A stem is cut after lower-casing, which may lengthen a word.
        {"x", "\u0130\u0130", "", {"i\u0307i\u0307", {}}},
        {"x", " commented on", "", {" comm", {}}},
        {"", "shipped", "", {"shipp", {}}},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(std::string(row.subject) + " / " + row.object);
        const auto found =
            event(row.subject, Answer{{"action", row.action}, {"object", row.object}});
        ASSERT_TRUE(found);
        EXPECT_EQ(found->action, row.expected.action);
        EXPECT_EQ(found->objects, row.expected.objects);
    }
}

TEST(EventStems, SubjectSplitsAtTheApostropheButTheObjectDoesNot) {
    // The subject's stems are "bob", "s" and "cat", so that "bob's" is no word of it, but "bob" is.
    EXPECT_EQ(event("Bob's cat", Answer{{"action", "fed"}, {"object", "bob's dog"}}),
              (Event{"fed", {"bob's", "dog"}}));
    EXPECT_EQ(event("Bob's cat", Answer{{"action", "fed"}, {"object", "bob dog"}}),
              (Event{"fed", {"bob"}}));
    EXPECT_EQ(event("Bob's cat", Answer{{"action", "fed"}, {"object", "s dog"}}),
              (Event{"fed", {"s"}}));
}

TEST(SameEvent, ComparesActionsAndHalfOfTheSmallerObjects) {
    const struct {
        Event a;
        Event b;
        bool same;
    } table[] = {
        {{"comme", {}}, {"comme", {}}, true},
        {{"comme", {"video"}}, {"comme", {}}, true},
        {{"comme", {"video"}}, {"comme", {"photo"}}, false},
        {{"comme", {"video"}}, {"comme", {"video", "photo", "album"}}, true},
        {{"comme", {"video", "photo"}}, {"comme", {"video", "album"}}, true},
        {{"comme", {"video", "photo", "album"}}, {"comme", {"video", "song", "post"}}, false},
        {{"comme", {"a", "b", "c", "d"}}, {"comme", {"a", "b", "x", "y"}}, true},
        {{"comme", {"a", "b", "c", "d"}}, {"comme", {"a", "w", "x", "y"}}, false},
        // Different actions: only when one is what the other happened to.
        {{"uploa", {"video"}}, {"comme", {"video"}}, false},
        {{"uploa", {"video"}}, {"comme", {"uploa"}}, true},
        {{"recei", {"order"}}, {"order", {"recei", "shop"}}, true},
        {{"order", {}}, {"shipp", {"order"}}, true},
        {{"order", {}}, {"shipp", {}}, false},
    };
    for (std::size_t i = 0; i < std::size(table); ++i) {
        EXPECT_EQ(Classifier::sameEvent(table[i].a, table[i].b), table[i].same) << "row " << i;
        EXPECT_EQ(Classifier::sameEvent(table[i].b, table[i].a), table[i].same) << "row " << i;
    }
}

TEST(SameEvent, ActionsThatShareTheirStemAreOne) {
    const auto commented = event("x", Answer{{"action", "commented"}});
    const auto commenting = event("x", Answer{{"action", "Commenting"}});
    ASSERT_TRUE(commented && commenting);
    EXPECT_TRUE(Classifier::sameEvent(*commented, *commenting));
}

/// Answers with the subject's first word as the action and the rest as the object.
std::optional<Answer> byWords(const ScriptedModel::Call& call) {
    const auto blank = call.prompt.find(' ');
    if (blank == std::string::npos) return std::nullopt;
    return Answer{{"action", call.prompt.substr(0, blank)},
                  {"object", call.prompt.substr(blank + 1)}};
}

TEST(KinIndices, FindsCandidatesOfTheSameEventInOrder) {
    ScriptedModel model;
    model.setScript(byWords);
    const std::vector<std::string> candidates{"shipped parcel", "refused", "liked photo",
                                              "shipping parcel", "shipped boots"};
    EXPECT_EQ(Classifier(model).kinIndices("shipped parcel", candidates, CancelToken()),
              (Indices{0, 3}));
    std::vector<std::string> prompts;
    for (const auto& call : model.calls()) prompts.push_back(call.prompt);
    EXPECT_EQ(prompts,
              (std::vector<std::string>{"shipped parcel", "shipped parcel", "refused",
                                        "liked photo", "shipping parcel", "shipped boots"}));
    EXPECT_EQ(model.mostInFlight(), 1);
}

TEST(KinIndices, EmptyWithoutAnEventOfTheReference) {
    ScriptedModel model;
    model.setScript(byWords);
    EXPECT_TRUE(Classifier(model).kinIndices("refused", {"shipped parcel"}, {}).empty());
    EXPECT_EQ(model.calls().size(), 1u);
}

TEST(KinIndices, CancellationGivesWhatWasFoundSoFar) {
    ScriptedModel model;
    const CancelToken token;
    int answers = 0;
    model.setScript([&](const ScriptedModel::Call& call) {
        if (++answers == 3) token.cancel();
        return byWords(call);
    });
    EXPECT_EQ(Classifier(model).kinIndices(
                  "shipped parcel", {"shipped parcel", "shipped parcel", "shipped parcel"}, token),
              (Indices{0, 1}));
    EXPECT_EQ(answers, 3);
}

TEST(KinIndices, CancelledBeforehandStillAsksForTheReference) {
    ScriptedModel model;
    model.setScript(byWords);
    const CancelToken token;
    token.cancel();
    EXPECT_TRUE(Classifier(model).kinIndices("shipped parcel", {"shipped parcel"}, token).empty());
    EXPECT_EQ(model.calls().size(), 1u);
}

}  // namespace
}  // namespace brindlet
