#include "models/embedded/Weights.h"

#include <gtest/gtest.h>

#include <numeric>
#include <string>
#include <vector>

namespace brindlet {
namespace {

constexpr std::size_t labels = learnedLabels.size();

/// Rows that let feature 7 speak for the third label.
std::string someWeights() {
    std::vector<float> rows((std::size_t{1} << featureBits) * labels);
    rows[7 * labels + 2] = 4;
    rows[8 * labels + 2] = -2;
    LabelScores biases{};
    biases[1] = 0.5F;
    return Weights::written(rows, biases);
}

TEST(Weights, ComeBackAsTheyWereWritten) {
    const std::string file = someWeights();
    const auto weights = Weights::open(file);
    ASSERT_TRUE(weights);
    const std::vector<Feature> third{{7, 1}};
    const auto shares = weights->probabilities(third);
    EXPECT_GT(shares[2], 0.8F);
    EXPECT_GT(shares[1], shares[0]) << "the bias";
    EXPECT_NEAR(std::accumulate(shares.begin(), shares.end(), 0.0F), 1.0F, 1e-5F);
    const std::vector<Feature> notThird{{8, 1}};
    EXPECT_LT(weights->probabilities(notThird)[2], shares[0] * 10);
    EXPECT_LT(weights->probabilities(notThird)[2], weights->probabilities(notThird)[0]);
}

TEST(Weights, AnyDamageIsRefused) {
    const std::string whole = someWeights();
    ASSERT_TRUE(Weights::open(whole));
    struct Row {
        std::string what;
        std::size_t at;
    };
    for (const auto& [what, at] :
         {Row{"magic", 0}, Row{"version", 8}, Row{"bits", 12}, Row{"labels", 16}, Row{"scale", 20},
          Row{"a bias", 24}, Row{"the first row", 60}, Row{"a row in the middle", whole.size() / 2},
          Row{"the last row", whole.size() - 9}, Row{"checksum", whole.size() - 1}}) {
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
