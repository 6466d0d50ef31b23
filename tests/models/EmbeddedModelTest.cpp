#include "models/embedded/EmbeddedModel.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <thread>
#include <vector>

#include "models/LabelSchema.h"
#include "models/embedded/Features.h"
#include "models/embedded/Labels.h"
#include "models/embedded/Weights.h"

namespace brindlet {
namespace {

std::string prompt(const std::string& sender, const std::string& subject, const std::string& body) {
    return "FROM: " + sender + "\nSUBJECT: " + subject + "\nBODY:\n" + body;
}

TEST(EmbeddedModel, AnswersWithTheCategoryAndNothingElse) {
    EmbeddedModel model;
    ASSERT_EQ(model.availability(), ModelAvailability::available);
    const auto answer = model.respond("", labelSchema(), prompt("a@b.test", "Hello", ""), {});
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->size(), 1U);
    EXPECT_EQ(answer->count("category"), 1U);
}

TEST(EmbeddedModel, FailsEverySchemaButTheTwoItKnows) {
    EmbeddedModel model;
    const auto fails = [&](const ModelSchema& schema) {
        return !model.respond("", schema, prompt("a@b.test", "Sale", "Buy now"), {});
    };
    ModelSchema schema = labelSchema();
    EXPECT_FALSE(fails(schema));
    schema.name = "Event";
    EXPECT_TRUE(fails(schema)) << "another name";
    schema = labelSchema();
    schema.properties.front().name = "action";
    EXPECT_TRUE(fails(schema)) << "another property";
    schema = labelSchema();
    schema.properties.push_back(schema.properties.front());
    EXPECT_TRUE(fails(schema)) << "one property more";
    schema = labelSchema();
    schema.properties.clear();
    EXPECT_TRUE(fails(schema)) << "no property";
    schema = labelSchema();
    schema.properties.front().anyOf.pop_back();
    EXPECT_TRUE(fails(schema)) << "a word less";
    schema = labelSchema();
    schema.properties.front().anyOf.push_back("holiday");
    EXPECT_TRUE(fails(schema)) << "a word more";
    schema = labelSchema();
    schema.properties.front().anyOf.back() = "CannotTell";
    EXPECT_TRUE(fails(schema)) << "another letter case";
    schema = labelSchema();
    schema.properties.front().anyOf.back() = "billOrPayment";
    EXPECT_TRUE(fails(schema)) << "one word twice";
    schema = labelSchema();
    schema.properties.front().anyOf.clear();
    EXPECT_TRUE(fails(schema)) << "any word";
}

TEST(EmbeddedModel, AnswersTheEventsSchemaFromTheSubjectAlone) {
    EmbeddedModel model;
    ModelSchema schema{"Event",
                       "what happened",
                       {{"action", "one word", "", "", {}}, {"object", "some words", "", "", {}}}};
    const auto answer = model.respond("", schema, "Your order #12 has shipped", {});
    ASSERT_TRUE(answer);
    EXPECT_EQ(*answer, (LanguageModel::Answer{{"action", "shipped"}, {"object", "order"}}));
    EXPECT_FALSE(model.respond("", schema, "See you on Friday", {})) << "no deed";
    schema.properties.pop_back();
    EXPECT_FALSE(model.respond("", schema, "Your order #12 has shipped", {})) << "another schema";
}

TEST(EmbeddedModel, TheOrderOfTheSchemasWordsDoesNotMatter) {
    EmbeddedModel model;
    ModelSchema schema = labelSchema();
    std::ranges::reverse(schema.properties.front().anyOf);
    const auto answer =
        model.respond("", schema, prompt("x@y.test", "Returned mail: see transcript", ""), {});
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->at("category"), "deliveryFailureBounce");
}

TEST(EmbeddedModel, DamagedWeightsMakeItUnavailable) {
    EmbeddedModel model{std::string_view("no weights")};
    EXPECT_EQ(model.availability(), ModelAvailability::unavailable);
    EXPECT_EQ(answerTo(model, prompt("a@b.test", "Hello", "")), "failed");
}

TEST(EmbeddedModel, OnlyTheFourBeginningsMakeABounce) {
    EmbeddedModel model;
    for (const std::string subject :
         {"Undeliverable: your note", "Delivery Status Notification (Failure)",
          "Returned mail: User unknown", "Mail delivery failed: returning message to sender"})
        EXPECT_EQ(answerTo(model, prompt("postmaster@b.test", subject, "550 unknown user")),
                  "deliveryFailureBounce")
            << subject;
    for (const std::string subject :
         {"undeliverable: your note", "Re: Undeliverable: your note", "failure notice",
          " Returned mail", "Undelivered Mail Returned to Sender"})
        EXPECT_NE(answerTo(model, prompt("postmaster@b.test", subject, "550 unknown user")),
                  "deliveryFailureBounce")
            << subject;
}

TEST(EmbeddedModel, AMereGuessAtJunkIsUnclear) {
    // Weights that know nothing give each label the same share, and the first is junk.
    const std::string knowNothing = Weights::written({}, {});
    EmbeddedModel model{std::string_view(knowNothing)};
    EXPECT_EQ(answerTo(model, prompt("a@b.test", "Hello", "there")), "cannotTell");
}

TEST(EmbeddedModel, OddPromptsGetOneOfTheWords) {
    EmbeddedModel model;
    const auto words = labelSchema().properties.front().anyOf;
    std::string everyByte;
    for (int byte = 0; byte < 256; ++byte) everyByte += static_cast<char>(byte);
    const std::vector<std::string> prompts{
        "",
        "\n",
        "no labels at all",
        "BODY:\nalone",
        "SUBJECT: then\nFROM: before",
        "FROM: \nSUBJECT: \nBODY:\n",
        prompt("", "", std::string(1 << 20, 'a')),
        prompt("", "", std::string(1 << 20, '=')),
        prompt("", "", std::string(1 << 20, 'A') + "a1"),
        prompt(std::string(1 << 20, '<'), std::string(1 << 20, '"'), ""),
        prompt("", "", std::string(5000, '\0')),
        prompt(everyByte, everyByte, everyByte),
        prompt("\xFF\xFE", "\xC3", "\xE2\x80"),
        prompt("@", "=", "=E"),
        prompt("<@>", "--------------------", "Content-Type: Content-Type:"),
    };
    for (const auto& odd : prompts)
        EXPECT_EQ(std::ranges::count(words, answerTo(model, odd)), 1) << odd.substr(0, 60);
}

TEST(EmbeddedModel, FourThreadsGetWhatOneGets) {
    EmbeddedModel model;
    std::vector<std::string> prompts;
    for (int i = 0; i < 200; ++i)
        prompts.push_back(prompt("shop" + std::to_string(i % 7) + "@b.test",
                                 i % 2 == 0 ? "Your order has shipped" : "Lunch on Friday?",
                                 "See you at " + std::to_string(i)));
    std::vector<std::string> alone;
    for (const auto& each : prompts) alone.push_back(answerTo(model, each));
    std::vector<std::vector<std::string>> together(4);
    std::vector<std::thread> threads;
    for (auto& answers : together)
        threads.emplace_back([&] {
            for (const auto& each : prompts) answers.push_back(answerTo(model, each));
        });
    for (auto& thread : threads) thread.join();
    for (const auto& answers : together) EXPECT_EQ(answers, alone);
}

TEST(EmbeddedModel, KnowsAFewPlainMessagesOfEachKind) {
    struct Row {
        std::string sender, subject, body, word;
    };
    const std::vector<Row> rows{
        {"Kettle & Co <deals@kettleco.test>", "Weekend sale: 30% off all teapots",
         "Use code TEA30 at checkout. Free shipping over $40. Unsubscribe",
         "advertisingOrPromotion"},
        {"Planly <hello@planly.test>", "Finish setting up your workspace",
         "You signed up last week but have not invited your team yet. Get started in minutes.",
         "advertisingOrPromotion"},
        {"Tidepool Weekly <newsletter@tidepool.test>", "Tidepool Weekly #41: life in the cold",
         "In this issue: how crabs sleep. Read more online. You receive this newsletter because "
         "you subscribed.",
         "newsletterOrDigest"},
        {"Job Finder <alerts@jobfinder.test>", "14 new jobs for you in Leeds",
         "Nurse at City Hospital, Leeds. View all jobs", "newsletterOrDigest"},
        {"Snapfold <notifications@snapfold.test>", "Maya Lind commented on your photo",
         "Maya Lind commented on your photo: so cute! View comment", "socialMediaBlast"},
        {"Kiln Forum <forum@kiln.test>", "New reply to \"Glaze keeps cracking\"",
         "A reply has been posted to a topic you are watching.", "socialMediaBlast"},
        {"Bookbarn <orders@bookbarn.test>", "Your order #48213 has shipped",
         "Your package is on its way. Tracking number 1Z993. Estimated delivery: 4 May.",
         "receiptOrOrderOrShipping"},
        {"Bookbarn <service@bookbarn.test>", "Refund issued: $18.20",
         "We have issued a refund to your card. It may take 5-7 business days to appear.",
         "receiptOrOrderOrShipping"},
        {"Norden Energy <billing@norden.test>", "Your March bill is ready",
         "Amount due: $73.11. Due date: 14 April. Pay now to avoid late fees.", "billOrPayment"},
        {"Cloudnest <legal@cloudnest.test>", "Updates to our Terms of Service",
         "We are updating our terms. These changes take effect on June 1.", "billOrPayment"},
        {"Cloudnest <no-reply@cloudnest.test>", "481920 is your Cloudnest verification code",
         "Your code expires in 10 minutes. Do not share it with anyone.",
         "securityCodeOrSignInAlert"},
        {"Cloudnest <security@cloudnest.test>", "New sign-in from Firefox on Linux",
         "We noticed a new sign-in to your account. If this wasn't you, change your password.",
         "securityCodeOrSignInAlert"},
        {"Cloudnest <welcome@cloudnest.test>", "Welcome to Cloudnest, your account is ready",
         "Thanks for signing up. Your username is robin7.", "accountWelcomeOrInvitation"},
        {"Ines Costa (via Cloudnest) <share@cloudnest.test>",
         "Ines Costa invited you to join the Bakery team",
         "Accept invitation. This invitation expires in 7 days.", "accountWelcomeOrInvitation"},
        {"Ines Costa <ines.costa@icloud.com>", "Dinner on Friday?",
         "Hi Robin, are you free on Friday? The kids would love to see you. Love, Ines",
         "personalMessageOrReminder"},
        {"Dr. Hale's office <reception@halesmiles.test>",
         "Appointment reminder: dentist tomorrow at 9:30 AM",
         "You have an appointment with Dr. Hale. Please arrive 10 minutes early.",
         "personalMessageOrReminder"},
        {"root <root@mill.test>", "Cron <root@mill> /usr/local/bin/backup.sh",
         "rsync: permission denied. exit code 23", "cannotTell"},
        {"Build <ci@mill.test>", "Build failed: mill/grinder#88",
         "Started by timer. Finished: FAILURE", "cannotTell"},
    };
    EmbeddedModel model;
    for (const auto& row : rows)
        EXPECT_EQ(answerTo(model, prompt(row.sender, row.subject, row.body)), row.word)
            << row.subject;
}

}  // namespace
}  // namespace brindlet
