#include "platform/linux/LinuxDiagnostics.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <syslog.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "base/Files.h"
#include "base/Task.h"
#include "doubles/Doubles.h"
#include "platform/posix/PosixProcessRunner.h"

namespace brindlet {
namespace {

using Reply = doubles::ScriptedProcessRunner::Reply;

const std::string headings = "PID 7 - process\nTID 7:\n";
const std::string stacks = headings + "#0  0x01 poll\n";

/// A sampler over programs that say what a test has them say, one reply after the other.
struct Sampler {
    doubles::ManualClock clock;
    doubles::ScriptedProcessRunner processes;
    doubles::TemporaryDirectories directories;
    LinuxDiagnostics diagnostics{processes, clock};
    const std::string path = directories.root() + "/hang.txt";
    const CancelToken token;

    void answer(std::vector<std::string> outputs) {
        processes.setScript([outputs = std::move(outputs), next = std::size_t(0)](
                                const auto&) mutable { return Reply{outputs.at(next++)}; });
    }
    Task start() {
        return Task::start(TaskPriority::userInitiated,
                           [this](const CancelToken&) { diagnostics.sample(path, token); });
    }
    void sample() {
        const auto sampling = start();
        for (const int pause : {1, 2}) {
            clock.waitForSleeps(pause);
            clock.advance(1);
        }
        sampling.wait();
    }
};

TEST(LinuxDiagnostics, TakesThreeSamplesASecondApart) {
    Sampler sampler;
    sampler.answer({stacks, stacks + "#1  0x02 main\n", stacks});
    sampler.sample();
    EXPECT_EQ(sampler.clock.sleeps(), (std::vector<double>{1, 1}));
    EXPECT_EQ(files::read(sampler.path), "Sample 1 of 3\n" + stacks + "\nSample 2 of 3\n" + stacks +
                                             "#1  0x02 main\n\nSample 3 of 3\n" + stacks + '\n');
}

TEST(LinuxDiagnostics, AsksForThisProcessAndForNoSymbolsFromTheNetwork) {
    Sampler sampler;
    sampler.answer({stacks, stacks, stacks});
    sampler.sample();
    const auto launches = sampler.processes.launches();
    ASSERT_EQ(launches.size(), 3U);
    for (const auto& launch : launches)
        EXPECT_EQ(launch.arguments,
                  (std::vector<std::string>{"/usr/bin/env", "DEBUGINFOD_URLS=", "/usr/bin/eu-stack",
                                            "-p", std::to_string(::getpid())}));
}

TEST(LinuxDiagnostics, EachSampleIsOnTheDiskBeforeTheNext) {
    Sampler sampler;
    sampler.answer({stacks, stacks, stacks});
    const auto sampling = sampler.start();
    sampler.clock.waitForSleeps(1);
    EXPECT_EQ(files::read(sampler.path), "Sample 1 of 3\n" + stacks + '\n');
    sampler.token.cancel();
    sampling.wait();
    EXPECT_EQ(files::read(sampler.path), "Sample 1 of 3\n" + stacks + '\n')
        << "an early end keeps what there is";
    EXPECT_EQ(sampler.processes.launches().size(), 1U);
}

TEST(LinuxDiagnostics, ASampleThatFailsTakesNothingFromTheOthers) {
    Sampler sampler;
    sampler.answer({"", stacks, headings});
    sampler.sample();
    EXPECT_EQ(files::read(sampler.path), "Sample 2 of 3\n" + stacks + '\n');
}

TEST(LinuxDiagnostics, WithoutAStackThereIsNoFile) {
    for (const auto& output : {std::string(), headings}) {
        SCOPED_TRACE(output);
        Sampler sampler;
        sampler.answer({output, output, output});
        sampler.sample();
        EXPECT_FALSE(files::exists(sampler.path));
    }
}

TEST(LinuxDiagnostics, AProgramThatCannotBeStartedIsNoFailure) {
    Sampler sampler;
    sampler.processes.setStarts(false);
    sampler.sample();
    EXPECT_FALSE(files::exists(sampler.path));
}

TEST(LinuxDiagnostics, AnEmptyFileGoesAgain) {
    Sampler sampler;
    files::write(sampler.path, "");
    sampler.answer({"", "", ""});
    sampler.sample();
    EXPECT_FALSE(files::exists(sampler.path));
}

/// One sample by a real child process: a script in the sampler's place, or nothing.
std::optional<std::string> sampleBy(const std::string& program) {
    doubles::ManualClock clock;
    PosixProcessRunner processes;
    const doubles::TemporaryDirectories directories;
    const auto path = directories.root() + "/hang.txt";
    const CancelToken afterTheFirst;
    afterTheFirst.cancel();
    LinuxDiagnostics(processes, clock, program).sample(path, afterTheFirst);
    return files::read(path);
}

TEST(LinuxDiagnostics, WhereTheSamplerIsNotInstalledThereIsNoFile) {
    EXPECT_EQ(sampleBy("/no/such/eu-stack"), std::nullopt);
}

TEST(LinuxDiagnostics, ManyComplaintsDoNotHoldTheSamplerUp) {
    const doubles::TemporaryDirectories directories;
    const auto script = directories.root() + "/eu-stack";
    files::write(script,
                 "#!/bin/sh\n"
                 "head -c 1000000 /dev/zero >&2\n"
                 "printf 'TID 7:\\n#0  symbols from <%s>\\n' \"$DEBUGINFOD_URLS\"\n");
    ASSERT_EQ(::chmod(script.c_str(), 0700), 0);
    EXPECT_EQ(sampleBy(script), "Sample 1 of 3\nTID 7:\n#0  symbols from <>\n\n");
}

TEST(LinuxDiagnostics, LogsALineAsItStands) {
    doubles::ManualClock clock;
    PosixProcessRunner processes;
    LinuxDiagnostics diagnostics(processes, clock);
    ::openlog("test", LOG_PERROR, LOG_USER);
    testing::internal::CaptureStderr();
    diagnostics.log("stalled 7s; wrote 100%s");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "test: stalled 7s; wrote 100%s\n");
    ::closelog();
}

}  // namespace
}  // namespace brindlet
