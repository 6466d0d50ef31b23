#include "models/embedded/Features.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace brindlet {
namespace {

const MailText letter{"Ada Park <ada.park@mail.test>", "Re: The boat",
                      "Hi, the boat is back. See you on Friday! Ada"};

double length(const std::vector<Feature>& features) {
    double squares = 0;
    for (const auto& feature : features)
        squares += static_cast<double>(feature.value) * static_cast<double>(feature.value);
    return std::sqrt(squares);
}

TEST(Features, AreTheSameEachTime) {
    EXPECT_EQ(FeatureExtractor().extract(letter), FeatureExtractor().extract(letter));
}

TEST(Features, StayThoseThatTheWeightsWereTrainedFor) {
    // A sum over rows and values: when it changes, `weightsVersion` must, and training be done
    // anew.
    std::uint64_t sum = 0;
    for (const auto& feature : FeatureExtractor().extract(letter))
        sum = sum * 31 + feature.row + static_cast<std::uint64_t>(feature.value * 1000);
    EXPECT_EQ(sum, 16670878459649492758U);
}

TEST(Features, RowsStayWithinTheTable) {
    for (const auto& feature : FeatureExtractor().extract(letter))
        EXPECT_LT(feature.row, 1U << featureBits);
}

TEST(Features, ALongBodyWeighsNoMoreThanAShortOne) {
    std::string longBody;
    for (int i = 0; i < 500; ++i)
        longBody += "word" + std::string(1, static_cast<char>('a' + i % 26)) + " ";
    const double brief = length(FeatureExtractor().extract({"", "", "one word"}));
    const double lengthy = length(FeatureExtractor().extract({"", "", longBody}));
    EXPECT_NEAR(brief, lengthy, 0.5);
}

TEST(Features, NothingGivesAFewFacts) {
    EXPECT_FALSE(FeatureExtractor().extract({}).empty());
    EXPECT_LT(FeatureExtractor().extract({}).size(), 10U);
}

TEST(Features, EncodingsMakeNoDifference) {
    const FeatureExtractor extractor;
    EXPECT_EQ(extractor.extract({"a@b.test", "Tea",
                                 "--b1_12345678 Content-Type: text/plain "
                                 "Tea at the caf=C3= =A9 tomorrow"}),
              extractor.extract({"a@b.test", "Tea",
                                 "--b2_87654321 Content-Type: text/plain "
                                 "Tea at the caf=C3=A9 tomor= row"}));
}

}  // namespace
}  // namespace brindlet
