#include "platform/linux/XdgDesktop.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>

#include "base/Files.h"
#include "doubles/Doubles.h"
#include "platform/Environments.h"

namespace brindlet {
namespace {

struct XdgDesktopTest : testing::Test {
    doubles::TemporaryDirectories directories;
    const std::string pipe = directories.root() + "/pipe";
    const std::string opener = directories.root() + "/opener";

    /// An opener that tells through the pipe how it was called.
    void SetUp() override {
        ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
        ASSERT_TRUE(
            files::write(opener, "#!/bin/sh\nprintf '%s:%s' \"$#\" \"$1\" > '" + pipe + "'\n"));
        ASSERT_EQ(::chmod(opener.c_str(), 0700), 0);
    }
};

TEST_F(XdgDesktopTest, HandsTheLinkToTheOpenerAsItStands) {
    XdgDesktop desktop(opener);
    const std::string link = "message://%3ca b;$(touch x)&'\"*@c%3e";
    desktop.openLink(link);
    EXPECT_EQ(files::read(pipe), "1:" + link);
}

TEST_F(XdgDesktopTest, OpensNothingThatReadsAsAnOption) {
    XdgDesktop desktop(opener);
    desktop.openLink("--version");
    desktop.openLink("");
    desktop.openLink("https://example.com");
    EXPECT_EQ(files::read(pipe), "1:https://example.com");
}

TEST_F(XdgDesktopTest, AMissingOpenerIsIgnored) {
    XdgDesktop(directories.root() + "/missing").openLink("https://example.com");
}

TEST_F(XdgDesktopTest, HasNoMailProgramAndNoSettingsOfItsFiles) {
    XdgDesktop desktop(opener);
    desktop.openMail();
    desktop.openDiskAccessSettings();
    desktop.openLink("mailto:a");
    EXPECT_EQ(files::read(pipe), "1:mailto:a");
}

/// Every program for settings that there might be, each telling its name through the pipe.
struct XdgSettingsTest : XdgDesktopTest {
    const std::string path = std::getenv("PATH");

    void SetUp() override {
        XdgDesktopTest::SetUp();
        for (const char* name : {"gnome-control-center", "systemsettings", "cinnamon-settings"}) {
            const auto program = directories.root() + "/" + name;
            ASSERT_TRUE(files::write(
                program, "#!/bin/sh\nprintf '%s:%s' \"$#\" \"${0##*/}\" > '" + pipe + "'\n"));
            ASSERT_EQ(::chmod(program.c_str(), 0700), 0);
        }
        ::setenv("PATH", directories.root().c_str(), 1);
    }
    void TearDown() override { ::setenv("PATH", path.c_str(), 1); }

    XdgDesktop desktopOf(const char* names) const {
        return XdgDesktop(opener, environmentOf({{"XDG_CURRENT_DESKTOP", names}}));
    }
};

TEST_F(XdgSettingsTest, AreOpenedByTheProgramOfTheDesktopInUse) {
    const std::pair<const char*, const char*> rows[] = {
        {"GNOME", "0:gnome-control-center"}, {"ubuntu:GNOME", "0:gnome-control-center"},
        {"KDE", "0:systemsettings"},         {"X-Cinnamon", "0:cinnamon-settings"},
        {"KDE:GNOME", "0:systemsettings"},
    };
    for (const auto& [names, told] : rows) {
        desktopOf(names).openSettings();
        EXPECT_EQ(files::read(pipe), told) << names;
    }
}

TEST_F(XdgSettingsTest, OfADesktopThatIsNotKnownOrLacksThemStayClosed) {
    for (const char* names : {"", ":", "gnome", "Weston", "GNOM", "LXQt:GNOME"}) {
        SCOPED_TRACE(names);
        auto desktop = desktopOf(names);
        desktop.openSettings();
        desktop.openLink("mailto:a");
        EXPECT_EQ(files::read(pipe), "1:mailto:a");
    }
    XdgDesktop(opener, environmentOf({})).openSettings();
}

}  // namespace
}  // namespace brindlet
