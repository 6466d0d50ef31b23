#include "models/embedded/Features.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <set>
#include <string>

namespace brindlet {
namespace {

const MailText letter{"Ada Park <ada.park@mail.test>", "Re: The boat",
                      "Hi, the boat is back. See you on Friday! Ada"};

TEST(Features, AreTheSameEachTime) {
    EXPECT_EQ(FeatureExtractor().extract(letter), FeatureExtractor().extract(letter));
}

TEST(Features, StayThoseThatTheWeightsWereTrainedFor) {
    // A sum over keys and values: when it changes, `weightsVersion` must, and training be done
    // anew.
    std::uint64_t sum = 0;
    for (const auto& feature : FeatureExtractor().extract(letter).all)
        sum = sum * 31 + feature.key + static_cast<std::uint64_t>(feature.value * 1000);
    EXPECT_EQ(sum, 17645417556552773320U);
}

TEST(Features, BlocksCoverAllThatWasSeen) {
    const Features features = FeatureExtractor().extract(letter);
    ASSERT_EQ(features.blocks.size(), 6U);
    EXPECT_EQ(features.blocks.back().end, features.all.size());
    std::size_t before = 0;
    for (const auto& block : features.blocks) {
        EXPECT_GT(block.end, before);
        EXPECT_GT(block.length, 0);
        before = block.end;
    }
}

TEST(Features, ALongBodyIsReadOnlyInItsFirstPart) {
    std::string longBody;
    for (int i = 0; i < 130; ++i) longBody += "word ";
    EXPECT_EQ(FeatureExtractor().extract({"", "", longBody}).blocks[1],
              FeatureExtractor().extract({"", "", longBody + "and more of it"}).blocks[1]);
}

TEST(Features, AWordOfAnotherLanguageMeansTheSame) {
    // "Your bill is overdue": no word of one is a word of another, but what they speak of is.
    const FeatureExtractor extractor;
    const auto conceptsOf = [&](const std::string& subject) {
        const Features features = extractor.extract({"", subject, ""});
        std::set<std::uint32_t> keys;
        for (std::size_t i = features.blocks[1].end; i < features.blocks[2].end; ++i)
            keys.insert(features.all[i].key);
        return keys;
    };
    const auto english = conceptsOf("overdue bill");
    EXPECT_FALSE(english.empty());
    for (const std::string same : {"f\xC3\xA4llige Rechnung",
                                   "facture impay\xC3\xA9"
                                   "e",
                                   "factura impagada", "bolletta insoluta", "fatura em atraso",
                                   "openstaande factuur", "zaleg\xC5\x82y rachunek"})
        EXPECT_TRUE(std::ranges::includes(conceptsOf(same), english)) << same;
}

TEST(Features, NothingGivesAFewFacts) {
    EXPECT_FALSE(FeatureExtractor().extract({}).all.empty());
    EXPECT_LT(FeatureExtractor().extract({}).all.size(), 10U);
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
