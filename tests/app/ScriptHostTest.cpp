#include "app/demo/ScriptHost.h"

#include <gtest/gtest.h>

#include "base/Files.h"
#include "doubles/Doubles.h"

namespace brindlet::demo {
namespace {

class ScriptHostTest : public testing::Test {
  protected:
    /// Makes an empty file at a path below the root, and answers the whole of the path.
    std::string make(const std::string& path) {
        const std::string whole = directories_.root() + '/' + path;
        files::createDirectories(whole.substr(0, whole.rfind('/')));
        EXPECT_TRUE(files::write(whole, ""));
        return whole;
    }

    doubles::TemporaryDirectories directories_;
    const std::string programs_ = directories_.root() + "/bin";
};

TEST_F(ScriptHostTest, LiesBesideAProgramThatWasOnlyBuilt) {
    const auto beside = make("bin/osascript");
    EXPECT_EQ(scriptHostFor(programs_), beside);
}

TEST_F(ScriptHostTest, LiesWhereThePackagePutsItAndNotAmongThePrograms) {
    const auto installed = make("libexec/brindlet/osascript");
    EXPECT_EQ(scriptHostFor(programs_), installed);
}

TEST_F(ScriptHostTest, AnotherScriptHostAmongTheProgramsIsNotTaken) {
    make("bin/osascript");
    const auto installed = make("libexec/brindlet/osascript");
    EXPECT_EQ(scriptHostFor(programs_), installed);
}

TEST_F(ScriptHostTest, IsMissedBesideTheProgram) {
    EXPECT_EQ(scriptHostFor(programs_), programs_ + "/osascript");
}

}  // namespace
}  // namespace brindlet::demo
