#include <gtest/gtest.h>

#include <string>

#include "base/Files.h"
#include "doubles/Doubles.h"
#include "platform/posix/PosixProcessRunner.h"

namespace brindlet {
namespace {

TEST(StalledProgram, LeavesAFileThatNamesWhereItsMainLoopStands) {
    const doubles::TemporaryDirectories directories;
    const auto folder = directories.store();
    const auto program = PosixProcessRunner().make({BRINDLET_STALLED_PROGRAM, folder});
    ASSERT_TRUE(program->launch());
    program->writeInput({});
    const auto path = folder + "/hang-2023-11-14T22-13-28Z.txt";
    EXPECT_EQ(program->readOutput(), "Brindlet: main thread stalled 8s; wrote " + path + '\n');
    EXPECT_EQ(program->wait(), 0) << program->readError();

    const auto text = files::read(path);
    ASSERT_TRUE(text) << "Is elfutils installed, and may a process be traced here?";
    for (const auto* part : {"Sample 1 of 3\n", "Sample 2 of 3\n", "Sample 3 of 3\n"}) {
        const auto sample = text->find(part);
        ASSERT_NE(sample, std::string::npos) << part << *text;
        // The innermost frame comes first.
        const auto blocked = text->find("standStillForGood", sample);
        ASSERT_NE(blocked, std::string::npos) << *text;
        EXPECT_NE(text->find("RunLoop::run", blocked), std::string::npos) << *text;
    }
}

}  // namespace
}  // namespace brindlet
