#include "classify/TemplatePlan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>

#include "NaivePlan.h"
#include "RandomSubjects.h"

namespace brindlet {
namespace {

using TemplatePlan::Cluster;
using TemplatePlan::Message;
using TemplatePlan::Plan;
using Indices = std::vector<std::size_t>;

Plan planOf(const std::vector<std::string>& subjects) {
    std::vector<Message> messages;
    for (const auto& subject : subjects) messages.push_back({"shop@x.example", subject});
    return TemplatePlan::make(messages);
}

TEST(TemplatePlanMake, NothingFromNothing) {
    EXPECT_EQ(TemplatePlan::make({}), Plan{});
}

TEST(TemplatePlanMake, SenderWithOneOrTwoMessagesIsNeverClustered) {
    EXPECT_EQ(planOf({"Your weekly report"}), (Plan{{0}, {}}));
    EXPECT_EQ(planOf({"Your weekly report", "Your weekly report"}), (Plan{{0, 1}, {}}));
}

TEST(TemplatePlanMake, ThreeAlikeGiveOneProbe) {
    EXPECT_EQ(planOf({"Your weekly report", "Your weekly report", "Your weekly report"}),
              (Plan{{0}, {{{0}, {1, 2}}}}));
}

TEST(TemplatePlanMake, SevenAlikeGiveOneProbeAndEightGiveThree) {
    EXPECT_EQ(planOf(std::vector<std::string>(7, "Your weekly report")),
              (Plan{{0}, {{{0}, {1, 2, 3, 4, 5, 6}}}}));
    EXPECT_EQ(planOf(std::vector<std::string>(8, "Your weekly report")),
              (Plan{{0, 2, 4}, {{{0, 2, 4}, {1, 3, 5, 6, 7}}}}));
}

TEST(TemplatePlanMake, TenAlikeAreProbedAtZeroThreeAndSix) {
    EXPECT_EQ(planOf(std::vector<std::string>(10, "Your weekly report")),
              (Plan{{0, 3, 6}, {{{0, 3, 6}, {1, 2, 4, 5, 7, 8, 9}}}}));
}

TEST(TemplatePlanMake, SubjectsThatShareNoWordAreAllProbes) {
    // With three messages every word is frequent, but no two skeletons are alike.
    EXPECT_EQ(planOf({"red boat", "blue car", "green kite"}), (Plan{{0, 1, 2}, {}}));
    EXPECT_EQ(planOf({"red boat", "blue car", "green kite", "old tree"}), (Plan{{0, 1, 2, 3}, {}}));
}

TEST(TemplatePlanMake, SubjectOfOneWordIsAlwaysAProbe) {
    EXPECT_EQ(planOf({"Report", "Report", "Report", "Report"}), (Plan{{0, 1, 2, 3}, {}}));
    EXPECT_EQ(planOf({"", "", "", ""}), (Plan{{0, 1, 2, 3}, {}}));
    EXPECT_EQ(planOf({"Report, report", "Report, report", "Report"}), (Plan{{2, 0}, {{{0}, {1}}}}));
}

/// How many clusters come of n subjects, of which k say "alpha beta" and the others nothing shared.
std::size_t clustersOf(std::size_t k, std::size_t n) {
    std::vector<std::string> subjects(k, "alpha beta");
    while (subjects.size() < n) subjects.push_back("only" + std::to_string(subjects.size()));
    return planOf(subjects).clusters.size();
}

TEST(TemplatePlanMake, FrequentMeansThreeTenthsOfTheGroup) {
    EXPECT_EQ(clustersOf(2, 3), 1u);
    EXPECT_EQ(clustersOf(2, 4), 1u);
    EXPECT_EQ(clustersOf(2, 6), 1u);
    EXPECT_EQ(clustersOf(2, 7), 0u);
    EXPECT_EQ(clustersOf(3, 10), 1u);
    EXPECT_EQ(clustersOf(3, 11), 0u);
    EXPECT_EQ(clustersOf(30, 100), 1u);
    EXPECT_EQ(clustersOf(30, 101), 0u);
}

TEST(TemplatePlanMake, WordOfOneSubjectIsFrequentAmongThreeButNotAmongFour) {
    // Such a word keeps skeletons apart only while it is frequent.
    EXPECT_EQ(planOf({"alpha beta 1", "alpha beta 2", "alpha beta 3"}), (Plan{{0, 1, 2}, {}}));
    EXPECT_EQ(planOf({"alpha beta 1", "alpha beta 2", "alpha beta 3", "alpha beta 4"}),
              (Plan{{0}, {{{0}, {1, 2, 3}}}}));
}

TEST(TemplatePlanMake, WordCountsOncePerSubject) {
    // Two of eight subjects are not enough, however often the words repeat in them.
    std::vector<std::string> subjects(8, "x");
    subjects[0] = subjects[1] = "alpha beta alpha beta alpha";
    EXPECT_TRUE(planOf(subjects).clusters.empty());
    subjects.resize(6);
    EXPECT_EQ(planOf(subjects).clusters, (std::vector<Cluster>{{{0}, {1}}}));
}

TEST(TemplatePlanMake, SkeletonKeepsRepeatsAndOrder) {
    EXPECT_EQ(planOf({"alpha beta alpha", "alpha beta", "beta alpha", "Alpha! Beta?",
                      "(alpha) beta-alpha"})
                  .clusters,
              (std::vector<Cluster>{{{0}, {4}}, {{1}, {3}}}));
}

TEST(TemplatePlanMake, SkeletonsAreToldApartByFrequentWordsAlone) {
    EXPECT_EQ(planOf({"Order 17 has shipped", "has shipped: order 18", "order 19 has shipped",
                      "ORDER no. 20 HAS SHIPPED", "has shipped order 21"}),
              (Plan{{0, 1}, {{{0}, {2, 3}}, {{1}, {4}}}}));
}

TEST(TemplatePlanMake, DisplayNamesOfOneAddressFallTogether) {
    EXPECT_EQ(TemplatePlan::make({{"Ann <a@x.example>", "one two"},
                                  {"A@X.example", "one two"},
                                  {" Shop, by Ann <A@x.Example> ", "one two"},
                                  {"b@x.example", "one two"}}),
              (Plan{{0, 3}, {{{0}, {1, 2}}}}));
}

TEST(TemplatePlanSenderKey, IsTheWholeAddressInLowerCase) {
    const std::pair<const char*, const char*> table[] = {
        {"Ann <Ann@X.example>", "ann@x.example"},
        // The whole address, also where a rule would fall back to the domain.
        {"A <a1@x.example>", "a1@x.example"},
        {"<a@b>", "a@b"},
        {"\t\u00a0Ann@x.example ", "ann@x.example"},
        {"\nann@x.example", "\nann@x.example"},
        // Inside the brackets nothing is trimmed.
        {"Ann < ann@x.example >", " ann@x.example "},
        {"Ann <>", ""},
        {"Ann <one@x.example> <two@x.example>", "one@x.example"},
        {"Ann <<a@x.example>>", "<a@x.example"},
        // The first of each, and only in this order.
        {"a > b <c@x.example>", "a > b <c@x.example>"},
        {" Ann <a@x.example ", "ann <a@x.example"},
        {"Ann a@x.example>", "ann a@x.example>"},
        {"\u00c9va <\u00c9va@x.example>", "\u00e9va@x.example"},
        {"\u212aELVIN@x.example", "kelvin@x.example"},
        {"", ""},
    };
    for (const auto& [sender, key] : table)
        EXPECT_EQ(TemplatePlan::senderKey(sender), key) << sender;
}

TEST(TemplatePlanMake, GroupsByTheKeyAlsoBeyondAscii) {
    EXPECT_EQ(TemplatePlan::make({{"<\u212aelvin@x.example>", "one two"},
                                  {"kelvin@x.example", "one two"},
                                  {"\u00a0KELVIN@x.example\u00a0", "one two"},
                                  {"\u00c9va@x.example", "one two"}}),
              (Plan{{0, 3}, {{{0}, {1, 2}}}}));
}

TEST(TemplatePlanMake, RunsRepeatInOrderOfFirstAppearance) {
    const std::vector<Message> messages{
        {"b@x.example", "one two"}, {"a@x.example", "one two"},   {"b@x.example", "three four"},
        {"a@x.example", "one two"}, {"c@x.example", "alone"},     {"b@x.example", "one two"},
        {"a@x.example", "one two"}, {"b@x.example", "three four"}};
    const Plan expected{{0, 2, 1, 4}, {{{0}, {5}}, {{2}, {7}}, {{1}, {3, 6}}}};
    EXPECT_EQ(TemplatePlan::make(messages), expected);
    EXPECT_EQ(TemplatePlan::make(messages), expected);
}

TEST(TemplatePlanMake, GivesWhatTheNaivePlanGives) {
    for (std::uint32_t seed = 0; seed < 400; ++seed) {
        RandomSubjects random(seed);
        const auto subjects = random.family(random.below(seed % 20 == 0 ? 1'500 : 60));
        const auto senders = 1 + random.below(4);
        std::vector<std::string> from;
        for (std::size_t i = 0; i < subjects.size(); ++i) {
            const auto address = "s" + std::to_string(random.below(senders)) + "@x.example";
            from.push_back(random.below(2) == 0 ? "\u00c9 <" + address + ">" : address);
        }
        std::vector<Message> messages;
        for (std::size_t i = 0; i < subjects.size(); ++i)
            messages.push_back({from[i], subjects[i]});
        ASSERT_EQ(TemplatePlan::make(messages), naivePlan(messages)) << "seed " << seed;
    }
}

TEST(TemplatePlanMake, GivesWhatTheNaivePlanGivesForAnyText) {
    for (std::uint32_t seed = 0; seed < 400; ++seed) {
        RandomSubjects random(seed);
        std::vector<std::string> texts{""};
        for (auto left = random.below(80); left > 0; --left) texts.push_back(random.text());
        std::vector<Message> messages;
        for (const auto& text : texts)
            messages.push_back({random.below(3) == 0 ? std::string_view(text) : "a@x.example",
                                texts[random.below(texts.size())]});
        ASSERT_EQ(TemplatePlan::make(messages), naivePlan(messages)) << "seed " << seed;
    }
}

TEST(TemplatePlanMake, EveryIndexIsAProbeOrInherits) {
    RandomSubjects random(7);
    const auto subjects = random.family(500);
    const auto plan = planOf(subjects);
    EXPECT_FALSE(plan.clusters.empty());
    Indices seen = plan.probes;
    for (const auto& cluster : plan.clusters) {
        seen.insert(seen.end(), cluster.members.begin(), cluster.members.end());
        for (const auto probe : cluster.probes)
            EXPECT_NE(std::find(plan.probes.begin(), plan.probes.end(), probe), plan.probes.end());
    }
    std::sort(seen.begin(), seen.end());
    Indices all(subjects.size());
    for (std::size_t i = 0; i < all.size(); ++i) all[i] = i;
    EXPECT_EQ(seen, all);
}

}  // namespace
}  // namespace brindlet
