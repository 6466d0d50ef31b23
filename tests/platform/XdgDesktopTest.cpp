#include "platform/linux/XdgDesktop.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "base/Files.h"
#include "doubles/Doubles.h"

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

TEST_F(XdgDesktopTest, HasNoMailProgramAndNoSettings) {
    XdgDesktop desktop(opener);
    desktop.openMail();
    desktop.openDiskAccessSettings();
    desktop.openLink("mailto:a");
    EXPECT_EQ(files::read(pipe), "1:mailto:a");
}

}  // namespace
}  // namespace brindlet
