#include <gtest/gtest.h>

#include "screens/Reader.h"

namespace brindlet::testing {
namespace {

TEST(PermissionScreen, ReadsItsStepsInTheirOrder) {
    Stage stage(scenes::permission);
    const Reader reader(stage);
    EXPECT_EQ(reader.find("One permission")->role(), QAccessible::Heading);
    double above = reader.find("One permission")->rect().bottom();
    for (const auto* step : {"1. Open Privacy & Security → Full Disk Access",
                             "2. Switch on Brindlet", "3. Come back here and press Check"}) {
        const auto* line = reader.find(step);
        ASSERT_NE(line, nullptr);
        EXPECT_EQ(line->role(), QAccessible::StaticText);
        EXPECT_GT(line->rect().top(), above) << step;
        above = line->rect().bottom();
    }
}

TEST(PermissionScreen, BeginsAtItsMainButtonAndHasASecond) {
    Stage stage(scenes::permission);
    EXPECT_EQ(stage.focused(), QStringLiteral("openSettings"));
    stage.press(Qt::Key_Space);
    stage.press(Qt::Key_Return);
    EXPECT_EQ(stage.world.desktop.opened,
              (std::vector<std::string>{"disk access settings", "disk access settings"}));
    stage.press(Qt::Key_Tab);
    EXPECT_EQ(stage.focused(), QStringLiteral("check"));
    stage.press(Qt::Key_Return);
    EXPECT_EQ(*stage.state->screen, AppState::Screen::permission) << "nothing has changed";
    const Reader reader(stage);
    EXPECT_EQ(reader.find("Open Settings")->role(), QAccessible::Button);
    EXPECT_EQ(reader.find("Check")->role(), QAccessible::Button);
}

}  // namespace
}  // namespace brindlet::testing
