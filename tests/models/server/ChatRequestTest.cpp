#include "models/server/ChatRequest.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "base/Json.h"
#include "base/Utf8.h"
#include "classify/Classifier.h"

namespace brindlet {
namespace {

std::string labelRequest(const std::string& prompt, const std::string& model = "") {
    return chatRequest(model, std::string(Classifier::instructions()), Classifier::labelSchema(),
                       prompt, {});
}

struct Message {
    std::string role, content;
};

std::vector<Message> messagesOf(const std::string& request) {
    std::vector<Message> messages;
    JsonReader json(request);
    json.object([&](std::string_view key) {
        if (key != "messages") return;
        json.array([&] {
            auto& message = messages.emplace_back();
            json.object([&](std::string_view name) {
                (name == "role" ? message.role : message.content) = json.string();
            });
        });
    });
    EXPECT_TRUE(json.finish()) << request;
    return messages;
}

TEST(ChatRequest, IsWrittenAsTheInterfaceHasIt) {
    const ModelSchema schema{"Label",
                             "The best",
                             {{"category", "the category", "Category", "Kind", {"one", "two"}},
                              {"object", "what", "", "", {}}}};
    EXPECT_EQ(chatRequest("small", "Sort.", schema, "FROM: a", {}),
              R"({"model":"small","temperature":0,"stream":false,)"
              R"("response_format":{"type":"json_schema","json_schema":{"name":"Label",)"
              R"("description":"The best","strict":true,"schema":{"type":"object",)"
              R"("description":"The best","properties":{"category":{"type":"string",)"
              R"("title":"Category","description":"the category: Kind","enum":["one","two"]},)"
              R"("object":{"type":"string","description":"what"}},)"
              R"("required":["category","object"],"additionalProperties":false}}},)"
              R"("messages":[{"role":"system","content":"Sort."},)"
              R"({"role":"user","content":"FROM: a"}]})");
}

TEST(ChatRequest, InstructionsAreTheSystemsMessageAndThePromptTheUsers) {
    const std::string prompt =
        Classifier::prompt("A <a@b.example>", "Sale \"now\"", "x\\y\n\t\x01");
    const auto messages = messagesOf(labelRequest(prompt));
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages[0].role, "system");
    EXPECT_EQ(messages[0].content, Classifier::instructions());
    EXPECT_EQ(messages[1].role, "user");
    EXPECT_EQ(messages[1].content, prompt);
}

TEST(ChatRequest, IsTheSameToTheByteUpToThePrompt) {
    const auto one = labelRequest("ONE");
    const auto other = labelRequest("OTHER");
    const std::string_view opening = R"({"role":"user","content":")";
    const auto start = one.find(opening) + opening.size();
    ASSERT_LT(start, one.size());
    EXPECT_GT(start, Classifier::instructions().size());
    EXPECT_EQ(one.substr(0, start), other.substr(0, start));
    EXPECT_EQ(one.substr(start), R"(ONE"}]})");
    EXPECT_EQ(other.substr(start), R"(OTHER"}]})");
}

TEST(ChatRequest, LeavesOutWhatNobodyNamed) {
    EXPECT_EQ(labelRequest("x").find("\"model\""), std::string::npos);
    EXPECT_NE(labelRequest("x", "qwen").find(R"({"model":"qwen",)"), std::string::npos);
    ModelOptions free;
    free.greedy = false;
    EXPECT_EQ(chatRequest("", "", Classifier::labelSchema(), "", free).find("temperature"),
              std::string::npos);
    // No bound on the answer's tokens: an answer that is cut is no answer.
    EXPECT_EQ(labelRequest("x").find("max_"), std::string::npos);
}

TEST(ChatRequest, OffersTheCategoriesInTheirOrder) {
    std::string words = "\"enum\":[";
    for (const auto& [value, word] : EnumInfo<Category>::all)
        words += (words.back() == '[' ? "\"" : ",\"") + std::string(word) + "\"";
    EXPECT_NE(labelRequest("x").find(words + "]"), std::string::npos);
}

TEST(ChatRequest, BytesThatAreNoTextAreRepaired) {
    const auto request = labelRequest("caf\xE9 \xFF\xFE");
    EXPECT_TRUE(isValidUtf8(request));
    EXPECT_EQ(messagesOf(request).back().content, "caf\uFFFD \uFFFD\uFFFD");
}

}  // namespace
}  // namespace brindlet
