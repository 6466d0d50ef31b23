#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <string>

#include "screens/Golden.h"

namespace brindlet::testing {
namespace {

struct Look {
    const char* name;
    void (*scene)(AppState&);
    bool dark = true;
};

void PrintTo(const Look& look, std::ostream* out) {
    *out << look.name;
}

// No sheet among them: how its glyphs fall after it has grown differs from run to run.
const Look looks[] = {
    {"dark-welcome", scenes::interrupted},
    {"dark-pick", scenes::chosenMailbox},
    {"dark-unreadable", scenes::noAccounts},
    {"dark-scanning", scenes::scanning},
    {"dark-results", scenes::movable},
    {"dark-expanded", scenes::openResults},
    {"dark-offer", scenes::correctedResults},
    {"dark-undo", scenes::sweptResults},
    {"dark-moving", scenes::moving},
    {"dark-all-done", scenes::allDone},
    {"dark-rules", scenes::rules},
    {"dark-history", scenes::history},
    {"dark-automatic", scenes::automatic},
    {"light-welcome", scenes::interrupted, false},
    {"light-expanded", scenes::openResults, false},
    {"light-rules", scenes::rules, false},
};

class Golden : public ::testing::TestWithParam<Look> {};

INSTANTIATE_TEST_SUITE_P(Looks, Golden, ::testing::ValuesIn(looks), [](const auto& look) {
    std::string name = look.param.name;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

TEST_P(Golden, LooksAsItDid) {
    Stage stage(GetParam().scene, Stage::Motion::none);
    stage.model().setDark(GetParam().dark);
    expectGolden(GetParam().name, pictureOf(stage));
    EXPECT_EQ(stage.main->warnings(), QStringList());
}

}  // namespace
}  // namespace brindlet::testing
