#include "models/embedded/Weights.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

namespace brindlet {
namespace {

LabelScores only(std::size_t label, float weight) {
    LabelScores weights{};
    weights[label] = weight;
    return weights;
}

/// Rows that let feature 7 speak for the third label and feature 8 against it.
std::string someWeights() {
    LabelScores biases{};
    biases[1] = 0.5F;
    return Weights::written({{7, only(2, 4)}, {8, only(2, -2)}}, biases);
}

Features block(std::vector<Feature> features, float length = 1) {
    const std::size_t end = features.size();
    return {std::move(features), {{end, length}}};
}

TEST(Weights, ComeBackAsTheyWereWritten) {
    const std::string file = someWeights();
    const auto weights = Weights::open(file);
    ASSERT_TRUE(weights);
    const auto shares = weights->probabilities(block({{7, 1}}));
    EXPECT_GT(shares[2], 0.8F);
    EXPECT_GT(shares[1], shares[0]) << "the bias";
    EXPECT_NEAR(std::accumulate(shares.begin(), shares.end(), 0.0F), 1.0F, 1e-5F);
    const auto others = weights->probabilities(block({{8, 1}}));
    EXPECT_LT(others[2], others[0]);
}

TEST(Weights, WhatWasNotTaughtNeitherCountsNorWeakensWhatWas) {
    const std::string file = someWeights();
    const auto weights = Weights::open(file);
    ASSERT_TRUE(weights);
    const auto alone = weights->probabilities(block({{7, 1}}));
    EXPECT_EQ(weights->probabilities(block({{7, 1}, {0x80000003, 5}})), alone);
    EXPECT_EQ(weights->probabilities(block({{0x80000003, 5}})), weights->probabilities({}));
}

TEST(Weights, ABlockIsAsLongAsItSays) {
    const std::string file = someWeights();
    const auto weights = Weights::open(file);
    ASSERT_TRUE(weights);
    EXPECT_EQ(weights->probabilities(block({{7, 3}})), weights->probabilities(block({{7, 1}})));
    EXPECT_GT(weights->probabilities(block({{7, 1}}, 2))[2],
              weights->probabilities(block({{7, 1}}, 1))[2]);
}

TEST(Weights, FeaturesOfOneFirstPlaceKeepApartAndThoseOfOneMarkToo) {
    // Small keys share the first place, the last the table's end; the mark is the low byte.
    const std::string file = Weights::written({{1, only(1, 4)},
                                               {2, only(2, 4)},
                                               {0x102, only(3, 4)},
                                               {0, only(4, 4)},
                                               {0xFFFFFF05, only(5, 4)},
                                               {0xFFFFFF06, only(6, 4)}},
                                              {});
    const auto weights = Weights::open(file);
    ASSERT_TRUE(weights);
    const auto best = [&](std::uint32_t key) {
        const auto shares = weights->probabilities(block({{key, 1}}));
        return std::ranges::max_element(shares) - shares.begin();
    };
    EXPECT_EQ(best(1), 1);
    EXPECT_EQ(best(2), 2);
    EXPECT_EQ(best(0x102), 2) << "the one that came first is the one that is found";
    EXPECT_EQ(best(0), 1) << "a mark of 0 would be a free place, so 0 is marked as 1 is";
    EXPECT_EQ(best(0xFFFFFF05), 5);
    EXPECT_EQ(best(0xFFFFFF06), 6);
}

TEST(Weights, AnyDamageIsRefused) {
    const std::string whole = someWeights();
    ASSERT_TRUE(Weights::open(whole));
    struct Row {
        std::string what;
        std::size_t at;
    };
    for (const auto& [what, at] :
         {Row{"magic", 0}, Row{"version", 8}, Row{"places", 12}, Row{"labels", 16},
          Row{"scale", 20}, Row{"a bias", 24}, Row{"the first row", 60},
          Row{"a row in the middle", whole.size() / 2}, Row{"the last row", whole.size() - 9},
          Row{"checksum", whole.size() - 1}}) {
        std::string damaged = whole;
        damaged[at] = static_cast<char>(damaged[at] ^ 1);
        EXPECT_FALSE(Weights::open(damaged)) << what;
    }
    EXPECT_FALSE(Weights::open("")) << "empty";
    EXPECT_FALSE(Weights::open(std::string_view(whole).substr(0, whole.size() - 1))) << "cut short";
    EXPECT_FALSE(Weights::open(std::string_view(whole).substr(0, 40))) << "a header alone";
    EXPECT_FALSE(Weights::open(whole + "x")) << "too long";
}

TEST(Weights, AnotherMagicOrVersionIsRefusedEvenWithARightChecksum) {
    const std::string whole = someWeights();
    for (const std::size_t at : {0U, 8U, 12U, 16U}) {
        std::string other = whole.substr(0, whole.size() - 8);
        other[at] = static_cast<char>(other[at] ^ 1);
        const std::uint64_t sum = Weights::checksum(other);
        for (int byte = 0; byte < 8; ++byte) other += static_cast<char>(sum >> (8 * byte) & 0xFF);
        EXPECT_FALSE(Weights::open(other)) << at;
    }
}

}  // namespace
}  // namespace brindlet
