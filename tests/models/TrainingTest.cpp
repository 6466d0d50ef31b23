#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>

#include "models/embedded/Labels.h"
#include "models/embedded/Weights.h"
#include "models/training/Dressing.h"
#include "models/training/ExactMath.h"
#include "models/training/Grammar.h"
#include "models/training/Phrase.h"
#include "models/training/Trainer.h"

namespace brindlet::training {
namespace {

constexpr std::string_view words =
    "# a comment\n"
    "= color\nred\nblue\n\n"
    "= thing, once\n(ball|box)\n"
    "= both\n{color} {thing}\n";

std::string category(const std::string& subject) {
    return "== weight 2, bodies 1-2, dress plain\n"
           "senders:\n{thing:upper} <{thing:plain}@a.test>\n"
           "subjects:\n" +
           subject +
           "\nbodies:\nThe {both}.\nA {thing}\\!\n"
           "openings:\n(Hi|)\nclosings:\nBye\n";
}

TEST(TrainingGrammar, FillsSlotsAndKeepsWhatIsChosenOnce) {
    Grammar grammar;
    ASSERT_EQ(grammar.addWords(words), "");
    ASSERT_EQ(grammar.addCategory("x", category("{thing}, ({color}|no color|)")), "");
    Random random(1);
    std::set<std::string> subjects;
    for (int i = 0; i < 200; ++i) {
        Grammar::Dress dress{};
        const SampleMail mail = grammar.make("x", random, dress);
        subjects.insert(mail.subject);
        const std::string thing = mail.subject.substr(0, mail.subject.find(','));
        EXPECT_EQ(mail.sender, (thing == "ball" ? "BALL" : "BOX") + (" <" + thing) + "@a.test>");
        EXPECT_NE(mail.body.find(thing), std::string::npos) << mail.body;
        EXPECT_TRUE(mail.body.ends_with(" Bye")) << mail.body;
    }
    EXPECT_EQ(subjects,
              (std::set<std::string>{"ball, red", "ball, blue", "ball, no color", "ball, ",
                                     "box, red", "box, blue", "box, no color", "box, "}));
}

TEST(TrainingGrammar, SaysWhatIsWrongAndWhere) {
    const auto problemOfWords = [](std::string_view text) { return Grammar().addWords(text); };
    EXPECT_EQ(problemOfWords("red"), "line 1: a phrase before the first list");
    EXPECT_EQ(problemOfWords("= a\nx\n= a\n"), "line 3: this list stands already");
    EXPECT_EQ(problemOfWords("= a\n(x|y\n"), "line 2: unbalanced brackets");
    EXPECT_EQ(problemOfWords("= a\nx)\n"), "line 2: unbalanced brackets");
    EXPECT_EQ(problemOfWords("= a\nx\n= b\n{a:loud}\n"), "line 4: unbalanced brackets");
    EXPECT_EQ(problemOfWords("= a\nx\n{a}\n"), "line 3: no list a before this");
    EXPECT_EQ(problemOfWords("= a\n{b}\n= b\nx\n"), "line 2: no list b before this");

    const auto problemOf = [](const std::string& text) {
        Grammar grammar;
        EXPECT_EQ(grammar.addWords(words), "");
        return grammar.addCategory("x", text);
    };
    EXPECT_EQ(problemOf(category("{color}")), "");
    EXPECT_EQ(problemOf(category("{size}")), "line 5: no list size before this");
    EXPECT_EQ(problemOf(""), "no scenario");
    EXPECT_EQ(problemOf("subjects:\n"), "line 1: a section before the first scenario");
    EXPECT_EQ(problemOf("== weight 1\nwords\n"), "line 2: a phrase outside every section");
    EXPECT_EQ(problemOf("== weight 0\n"), "line 1: not a scenario's heading");
    EXPECT_EQ(problemOf("== bodies 3-2\n"), "line 1: not a scenario's heading");
    EXPECT_EQ(problemOf("== dress formal\n"), "line 1: not a scenario's heading");
    EXPECT_EQ(problemOf("== weight 1, bodies 2\nsenders:\na\nsubjects:\nb\nbodies:\nc\n"),
              "a scenario with too few phrases");
}

TEST(TrainingGrammar, TheSameRandomnessGivesTheSameMail) {
    Grammar grammar;
    ASSERT_EQ(grammar.addWords(words), "");
    ASSERT_EQ(grammar.addCategory("x", category("{both}")), "");
    Random one(7);
    Random other(7);
    for (int i = 0; i < 50; ++i) {
        Grammar::Dress dress{};
        SampleMail first = grammar.make("x", one, dress);
        dressUp(first, Grammar::Dress::bulk, one);
        SampleMail second = grammar.make("x", other, dress);
        dressUp(second, Grammar::Dress::bulk, other);
        EXPECT_EQ(first.subject, second.subject);
        EXPECT_EQ(first.body, second.body);
        EXPECT_LE(first.body.size(), 700U);
    }
}

TEST(TrainingMath, IsAsGoodAsTheLibrarys) {
    for (double x = -30; x <= 30; x += 0.37) EXPECT_NEAR(exactExp(x) / std::exp(x), 1, 1e-12) << x;
    for (double x = 1e-9; x < 1e9; x *= 3.7) EXPECT_NEAR(exactLog(x), std::log(x), 1e-11) << x;
    EXPECT_EQ(exactExp(-800), 0);
}

TEST(Training, LearnsASmallGrammarAndGivesTheSameBytesAgain) {
    Grammar grammar;
    ASSERT_EQ(grammar.addWords("= word, once\nalpha\n"), "");
    const auto subjectOf = [](std::size_t label) {
        return std::string(6, static_cast<char>('a' + label));
    };
    for (std::size_t label = 0; label < learnedLabels.size(); ++label)
        ASSERT_EQ(grammar.addCategory(learnedLabels[label],
                                      "== weight 1\nsenders:\na@b.test\nsubjects:\n" +
                                          subjectOf(label) + "\nbodies:\n{word}\n"),
                  "");
    TrainingPlan plan;
    plan.samples = 900;
    const std::string file = trainedWeights(grammar, plan);
    EXPECT_EQ(trainedWeights(grammar, plan), file);
    plan.seed = 2;
    EXPECT_NE(trainedWeights(grammar, plan), file);
    const auto weights = Weights::open(file);
    ASSERT_TRUE(weights);
    for (std::size_t label = 0; label < learnedLabels.size(); ++label) {
        const auto shares = weights->probabilities(
            FeatureExtractor().extract({"a@b.test", subjectOf(label), "alpha"}));
        EXPECT_EQ(std::ranges::max_element(shares) - shares.begin(),
                  static_cast<std::ptrdiff_t>(label));
    }
}

}  // namespace
}  // namespace brindlet::training
