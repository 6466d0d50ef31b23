#include "app/demo/DemoPower.h"

#include <gtest/gtest.h>

#include "base/Files.h"
#include "doubles/Doubles.h"

namespace brindlet::demo {
namespace {

class DemoPowerTest : public testing::Test {
  protected:
    doubles::TemporaryDirectories directories_;
    const std::string file_ = directories_.root() + "/power.txt";
};

TEST_F(DemoPowerTest, StartsAsItIsTold) {
    EXPECT_FALSE(DemoPower(file_, false).onBattery());
    EXPECT_TRUE(DemoPower(file_, true).onBattery());
}

TEST_F(DemoPowerTest, FollowsWhatAnybodyWritesIntoItsFile) {
    const DemoPower power(file_, false);
    for (const auto& [text, battery] : {std::pair("battery\n", true), std::pair("battery", true),
                                        std::pair("plugged in\n", false), std::pair("", false)}) {
        ASSERT_TRUE(files::write(power.file(), text));
        EXPECT_EQ(power.onBattery(), battery) << text;
    }
}

TEST_F(DemoPowerTest, IsPluggedInWithoutItsFile) {
    const DemoPower power(file_, true);
    ASSERT_TRUE(files::remove(file_));
    EXPECT_FALSE(power.onBattery());
}

TEST_F(DemoPowerTest, TheTourPullsThePlugForEverybody) {
    DemoPower power(file_, false);
    power.setOnBattery(true);
    EXPECT_EQ(files::read(file_), "battery\n");
    power.setOnBattery(false);
    EXPECT_FALSE(power.onBattery());
}

}  // namespace
}  // namespace brindlet::demo
