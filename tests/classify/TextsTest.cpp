#include <gtest/gtest.h>

#include <string>

#include "base/Files.h"
#include "classify/Classifier.h"

namespace brindlet {
namespace {

std::string fixture(const std::string& name) {
    const auto bytes = files::read(std::string(BRINDLET_FIXTURES) + "/classify/" + name);
    EXPECT_TRUE(bytes) << name;
    return bytes.value_or("");
}

TEST(ClassifierTexts, AreByteForByteWhatTheModelWasTunedWith) {
    EXPECT_EQ(Classifier::instructions(), fixture("instructions.txt"));
    EXPECT_EQ(Classifier::eventInstructions(), fixture("event-instructions.txt"));
    EXPECT_EQ(Classifier::vetoRegex(), fixture("veto.txt"));
}

TEST(ClassifierTexts, EndWithoutALineBreak) {
    EXPECT_EQ(Classifier::instructions().back(), '.');
    EXPECT_EQ(Classifier::eventInstructions().back(), '.');
    EXPECT_EQ(Classifier::vetoRegex().back(), 'y');
}

TEST(ClassifierTexts, NameEachCategoryOnceAsAHeading) {
    const std::string text = "\n" + std::string(Classifier::instructions());
    for (const auto category : allCases<Category>()) {
        const auto heading = "\n" + std::string(rawValue(category)) + ": ";
        const auto first = text.find(heading);
        EXPECT_NE(first, std::string::npos) << heading;
        EXPECT_EQ(text.find(heading, first + 1), std::string::npos) << heading;
    }
}

}  // namespace
}  // namespace brindlet
