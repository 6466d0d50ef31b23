#include "platform/linux/LinuxPower.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <map>

#include "base/Files.h"
#include "base/Gate.h"
#include "doubles/Doubles.h"

namespace brindlet {
namespace {

using Supplies = std::map<std::string, std::map<std::string, std::string>>;

bool onBatteryWith(const Supplies& supplies) {
    const doubles::TemporaryDirectories directories;
    for (const auto& [name, attributes] : supplies) {
        const auto supply = directories.root() + "/supplies/" + name;
        files::createDirectories(supply);
        for (const auto& [attribute, value] : attributes)
            files::write(supply + '/' + attribute, value + '\n');
    }
    return LinuxPower(directories.root() + "/supplies", nullptr).onBattery();
}

TEST(LinuxPower, IsOnBatteryWhenOneDischargesAndNoMainsIsOnline) {
    const std::map<std::string, std::string> discharging{{"type", "Battery"},
                                                         {"status", "Discharging"}};
    const std::map<std::string, std::string> full{{"type", "Battery"}, {"status", "Full"}};
    const std::map<std::string, std::string> plugged{{"type", "Mains"}, {"online", "1"}};
    const std::map<std::string, std::string> unplugged{{"type", "Mains"}, {"online", "0"}};
    const std::map<std::string, std::string> usb{{"type", "USB"}, {"online", "1"}};
    const std::map<std::string, std::string> mouse{
        {"type", "Battery"}, {"status", "Discharging"}, {"scope", "Device"}};
    EXPECT_TRUE(onBatteryWith({{"BAT0", discharging}}));
    EXPECT_TRUE(onBatteryWith({{"AC", unplugged}, {"BAT0", discharging}}));
    EXPECT_TRUE(onBatteryWith({{"BAT0", full}, {"BAT1", discharging}}));
    EXPECT_FALSE(onBatteryWith({{"AC", plugged}, {"BAT0", discharging}}));
    EXPECT_FALSE(onBatteryWith({{"BAT0", discharging}, {"ucsi", usb}}));
    EXPECT_FALSE(onBatteryWith({{"AC", unplugged}, {"BAT0", full}}));
    EXPECT_FALSE(onBatteryWith({{"hidpp", mouse}}));
    EXPECT_FALSE(onBatteryWith({{"AC", plugged}}));
}

TEST(LinuxPower, IsNotOnBatteryWhereNothingIsKnown) {
    EXPECT_FALSE(onBatteryWith({}));
    EXPECT_FALSE(onBatteryWith({{"BAT0", {}}}));
    EXPECT_FALSE(onBatteryWith({{"BAT0", {{"type", "Battery"}}}}));
}

/// A descriptor to give away, its other end telling when it was closed. What a request's thread
/// touches it shares with the test, since it may outlive it.
struct Pipe {
    int ends[2] = {-1, -1};
    Pipe() { EXPECT_EQ(::pipe2(ends, O_CLOEXEC), 0); }
    ~Pipe() { ::close(ends[0]); }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    /// Blocks until the writing end is closed.
    void waitForClose() const {
        char byte;
        EXPECT_EQ(::read(ends[0], &byte, 1), 0);
    }
    bool open() const {
        ::fcntl(ends[0], F_SETFL, O_NONBLOCK);
        char byte;
        const bool open = ::read(ends[0], &byte, 1) < 0;
        ::fcntl(ends[0], F_SETFL, 0);
        return open;
    }
};

TEST(KeepAwake, LastsAsLongAsItsToken) {
    const Pipe pipe;
    struct Asked {
        Gate gate;
        Locked<std::string> reason;
    };
    const auto asked = std::make_shared<Asked>();
    LinuxPower power("", [asked, end = pipe.ends[1]](const std::string& reason) {
        asked->reason.set(reason);
        asked->gate.raise();
        return end;
    });
    auto activity = power.keepAwake("Sorting mail");
    asked->gate.waitFor(1);
    EXPECT_EQ(asked->reason.get(), "Sorting mail");
    EXPECT_TRUE(pipe.open());
    activity.reset();
    pipe.waitForClose();
}

TEST(KeepAwake, AnAnswerThatComesAfterTheEndIsGivenBack) {
    const Pipe pipe;
    const auto go = std::make_shared<Gate>();
    LinuxPower power("", [go, end = pipe.ends[1]](const std::string&) {
        go->waitFor(1);
        return end;
    });
    power.keepAwake("never answered in time").reset();
    go->raise();
    pipe.waitForClose();
}

TEST(KeepAwake, WithoutAnAnswerItDoesNothing) {
    const auto asked = std::make_shared<Gate>();
    LinuxPower power("", [asked](const std::string&) {
        asked->raise();
        return -1;
    });
    const auto activity = power.keepAwake("x");
    EXPECT_TRUE(activity);
    asked->waitFor(1);
}

}  // namespace
}  // namespace brindlet
