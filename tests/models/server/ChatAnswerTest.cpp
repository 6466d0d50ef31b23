#include "models/server/ChatAnswer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "classify/Classifier.h"
#include "doubles/HttpServer.h"

namespace brindlet {
namespace {

using doubles::chatCompletion;
using Answer = LanguageModel::Answer;

const std::string good = R"({"category":"billOrPayment"})";

std::optional<Answer> labelled(const std::string& body) {
    return chatAnswer(body, Classifier::labelSchema());
}

/// A whole answer around a message, written as servers write it.
std::string withMessage(const std::string& message, const std::string& end = R"("stop")") {
    return R"({"choices":[{"index":0,"message":)" + message + R"(,"finish_reason":)" + end + "}]}";
}

std::string quotedGood() {
    return R"("{\"category\":\"billOrPayment\"}")";
}

TEST(ChatAnswer, TakesAnObjectThatFollowsTheSchema) {
    const Answer bill{{"category", "billOrPayment"}};
    for (const std::string& content :
         {good, "\n " + good + "\n", std::string(R"({ "category" : "billOrPayment" })"),
          std::string(R"({"category":"\u0062illOrPayment"})")})
        EXPECT_EQ(labelled(chatCompletion(content)), bill) << content;
}

TEST(ChatAnswer, TakesWhatServersAddAndLeaveOut) {
    const std::vector<std::string> bodies{
        R"({"choices":[{"message":{"content":)" + quotedGood() + "}}]}",
        withMessage(R"({"content":)" + quotedGood() + R"(,"refusal":null,"tool_calls":[]})"),
        withMessage(R"({"content":)" + quotedGood() + R"(,"refusal":""})"),
        withMessage(R"({"content":)" + quotedGood() + R"(,"reasoning_content":"Hm."})", "null"),
        withMessage(R"({"role":"assistant","content":)" + quotedGood() + "}", R"("eos_token")"),
        // Only the first choice was asked for.
        R"({"choices":[{"message":{"content":)" + quotedGood() +
            R"(}},{"message":{"content":7}}]})",
        " \n" + chatCompletion(good) + "\n",
    };
    for (const auto& body : bodies) EXPECT_TRUE(labelled(body)) << body;
}

// The classifier trims a word before it looks it up, so a blank here is no reason to refuse.
TEST(ChatAnswer, WhiteSpaceAroundAWordDoesNotCount) {
    const std::string content = R"({"category":" billOrPayment\n"})";
    EXPECT_EQ(labelled(chatCompletion(content)), (Answer{{"category", " billOrPayment\n"}}));
}

TEST(ChatAnswer, RefusesContentThatBreaksTheSchema) {
    const std::vector<std::string> contents{
        "",
        " ",
        "billOrPayment",
        "\"billOrPayment\"",
        "null",
        "[]",
        "[" + good + "]",
        "{}",
        R"({"category":null})",
        R"({"category":7})",
        R"({"category":true})",
        R"({"category":["billOrPayment"]})",
        R"({"category":{"category":"billOrPayment"}})",
        R"({"category":""})",
        R"({"category":"BillOrPayment"})",
        R"({"category":"billorpayment"})",
        R"({"category":"bill"})",
        R"({"category":"billOrPayment."})",
        R"({"category":"billOrPayment, newsletterOrDigest"})",
        R"({"category":"billOrPayment\u0000"})",
        R"({"category":"spam"})",
        R"({"Category":"billOrPayment"})",
        R"({"label":"billOrPayment"})",
        R"({"category":"billOrPayment","why":"it is a bill"})",
        R"({"category":"billOrPayment","category":"billOrPayment"})",
        R"({"category":"billOrPayment","category":"cannotTell"})",
        good + "\nI chose this since it is a bill.",
        "Here you are: " + good,
        good + good,
        "```json\n" + good + "\n```",
        "<think>A bill?</think>" + good,
        R"({"category":"billOrPayment")",
        R"({"category":"billOrPay)",
        R"({"category":"billOrPayment",})",
        R"({category:"billOrPayment"})",
        R"({'category':'billOrPayment'})",
        R"({"category":"\ud800"})",
        R"({"category":"billOrPayment\)",
        std::string(100'000, '['),
        R"({"category":")" + std::string(100'000, 'a') + R"("})",
        R"({"category":"billOrPayment)" + std::string(2000, ' ') + R"("})",
    };
    for (const auto& content : contents)
        EXPECT_EQ(labelled(chatCompletion(content)), std::nullopt) << content.substr(0, 80);
}

TEST(ChatAnswer, RefusesBodiesThatAreNoAnswer) {
    const std::string whole = chatCompletion(good);
    const std::vector<std::string> bodies{
        "",
        "null",
        "[]",
        "{}",
        "Not found",
        "<html></html>",
        good,
        R"({"error":{"message":"model not found"}})",
        R"({"choices":null})",
        R"({"choices":[]})",
        R"({"choices":{}})",
        R"({"choices":[7]})",
        R"({"choices":[{}]})",
        R"({"choices":[{"text":)" + quotedGood() + "}]}",
        R"({"choices":[{"message":null}]})",
        R"({"choices":[{"message":{}}]})",
        R"({"choices":[{"delta":{"content":)" + quotedGood() + "}}]}",
        withMessage(R"({"content":null})"),
        withMessage(R"({"content":7})"),
        withMessage(R"({"content":)" + good + "}"),
        withMessage(R"({"content":[{"type":"text","text":)" + quotedGood() + "}]}"),
        // Said by the server itself.
        withMessage(R"({"content":)" + quotedGood() + R"(,"refusal":"I cannot help with that."})"),
        withMessage(R"({"content":null,"refusal":"I cannot help with that."})"),
        withMessage(R"({"content":)" + quotedGood() + "}", R"("length")"),
        withMessage(R"({"content":)" + quotedGood() + "}", R"("content_filter")"),
        withMessage(R"({"content":)" + quotedGood() + "}", "7"),
        // The first choice counts, not the best.
        R"({"choices":[{"message":{"content":"no"}},{"message":{"content":)" + quotedGood() +
            "}}]}",
        "data: " + whole + "\n\ndata: [DONE]\n\n",
        whole + whole,
        whole + "x",
        "\xEF\xBB\xBFx" + whole,
        withMessage("{\"content\":\"{\\\"category\\\":\\\"billOrPayment\xFF\\\"}\"}"),
        withMessage(R"({"note":")" + std::string("\xC3") + R"(","content":)" + quotedGood() + "}"),
        std::string(100'000, '['),
        std::string(1000, '\0'),
    };
    for (const auto& body : bodies) EXPECT_EQ(labelled(body), std::nullopt) << body.substr(0, 120);
    for (std::size_t cut = 0; cut < whole.size(); ++cut)
        EXPECT_EQ(labelled(whole.substr(0, cut)), std::nullopt) << whole.substr(0, cut);
}

TEST(ChatAnswer, FreeTextMustBeThereAndShort) {
    const auto event = [](const std::string& content) {
        return chatAnswer(chatCompletion(content), Classifier::eventSchema());
    };
    EXPECT_EQ(event(R"({"action":"uploaded","object":"a video"})"),
              (Answer{{"action", "uploaded"}, {"object", "a video"}}));
    EXPECT_EQ(event(R"({"object":"","action":"uploaded"})"),
              (Answer{{"action", "uploaded"}, {"object", ""}}));
    EXPECT_TRUE(event(R"({"action":"a","object":")" + std::string(1024, 'b') + R"("})"));
    EXPECT_FALSE(event(R"({"action":"a","object":")" + std::string(1025, 'b') + R"("})"));
    EXPECT_FALSE(event(R"({"action":"uploaded"})"));
    EXPECT_FALSE(event(R"({"action":"uploaded","object":null})"));
    EXPECT_FALSE(event(R"({"action":"uploaded","object":["a","video"]})"));
}

}  // namespace
}  // namespace brindlet
