#include "platform/posix/PosixProcessRunner.h"

#include <gtest/gtest.h>
#include <pthread.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <thread>

#include "base/Files.h"
#include "base/Task.h"
#include "doubles/Doubles.h"

namespace brindlet {
namespace {

using Process = std::shared_ptr<ChildProcess>;

Process shell(const std::string& script, const std::vector<std::string>& more = {}) {
    std::vector<std::string> arguments = {"/bin/sh", "-c", script, "sh"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return PosixProcessRunner().make(std::move(arguments));
}

std::size_t openDescriptors() {
    return files::list("/proc/self/fd")->size();
}

/// True when a child of this process has ended and nobody has reaped it.
bool hasZombie() {
    siginfo_t found{};
    return ::waitid(P_ALL, 0, &found, WEXITED | WNOHANG | WNOWAIT) == 0 && found.si_pid != 0;
}

/// Ends a grandchild that a test has left behind, whose number it has been told.
void endGrandchild(const std::string& number) {
    const int grandchild = std::atoi(number.c_str());
    ASSERT_GT(grandchild, 1);
    ::kill(grandchild, SIGKILL);
}

TEST(PosixProcess, HandsOnArgumentsInputAndEnvironmentAsTheyStand) {
    const auto process =
        shell("cat; printf '|%s' \"$@\" \"$PATH\"", {"a b", "", "$(x)'\"\\", "ü\tx\n"});
    ASSERT_TRUE(process->launch());
    process->writeInput("in\nput");
    EXPECT_EQ(process->readOutput(),
              "in\nput|a b||$(x)'\"\\|ü\tx\n|" + std::string(std::getenv("PATH")));
    EXPECT_EQ(process->readError(), "");
    EXPECT_EQ(process->wait(), 0);
}

TEST(PosixProcess, KeepsOutputAndErrorApartAndGivesTheStatus) {
    const auto process = shell("printf out; printf err >&2; exit 7");
    ASSERT_TRUE(process->launch());
    EXPECT_EQ(process->readOutput(), "out");
    EXPECT_EQ(process->readError(), "err");
    EXPECT_EQ(process->wait(), 7);
    EXPECT_EQ(process->wait(), 7);
    EXPECT_FALSE(process->running());
}

TEST(PosixProcess, WhatCannotBeStartedLeavesNothingBehind) {
    const doubles::TemporaryDirectories directories;
    const auto plain = directories.root() + "/plain";
    ASSERT_TRUE(files::write(plain, "no program"));
    const auto before = openDescriptors();
    for (const std::string& path : {directories.root() + "/missing", directories.root(), plain,
                                    std::string(), std::string("sh")}) {
        SCOPED_TRACE(path);
        const auto process = PosixProcessRunner().make({path, "-"});
        EXPECT_FALSE(process->launch());
        EXPECT_FALSE(process->running());
        process->terminate();
    }
    EXPECT_EQ(openDescriptors(), before);
    EXPECT_FALSE(hasZombie());
}

TEST(PosixProcess, InputThatNobodyReadsIsNoFailure) {
    // The signal would end this program, as libraries that ignore it may not have been here yet.
    struct sigaction standard {
    }, before{}, after{};
    standard.sa_handler = SIG_DFL;
    ::sigaction(SIGPIPE, &standard, &before);
    const auto process = shell("exec true");
    ASSERT_TRUE(process->launch());
    process->writeInput(std::string(1 << 20, 'x'));
    EXPECT_EQ(process->wait(), 0);
    sigset_t pending;
    ::sigpending(&pending);
    EXPECT_EQ(::sigismember(&pending, SIGPIPE), 0) << "would end us later";
    ::sigaction(SIGPIPE, &before, &after);
    EXPECT_EQ(after.sa_handler, SIG_DFL) << "is the program's to choose";
}

TEST(PosixProcess, RunsUntilItEnds) {
    const auto process = shell("read line");
    EXPECT_FALSE(process->running());
    ASSERT_TRUE(process->launch());
    EXPECT_TRUE(process->running());
    process->writeInput("go\n");
    while (process->running()) std::this_thread::yield();
    EXPECT_EQ(process->wait(), 0);
}

TEST(PosixProcess, IsTerminatedBySignal) {
    const auto process = shell("exec sleep 1000");
    ASSERT_TRUE(process->launch());
    process->terminate();
    EXPECT_EQ(process->readOutput(), "");
    EXPECT_EQ(process->wait(), -1);
    EXPECT_FALSE(process->running());
}

TEST(PosixProcess, CanBeTerminatedByAnotherThreadWhileOneWaits) {
    const auto process = shell("exec sleep 1000");
    ASSERT_TRUE(process->launch());
    const auto waiting =
        Task::start(TaskPriority::userInitiated, [&](const CancelToken&) { process->wait(); });
    process->terminate();
    waiting.wait();
    EXPECT_FALSE(process->running());
}

TEST(PosixProcess, HeedsTheSignalThatTheStartingThreadHasBlocked) {
    sigset_t blocked, before;
    ::sigemptyset(&blocked);
    ::sigaddset(&blocked, SIGTERM);
    ::pthread_sigmask(SIG_BLOCK, &blocked, &before);
    const auto process = shell("exec sleep 1000");
    const bool launched = process->launch();
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    ASSERT_TRUE(launched);
    process->terminate();
    EXPECT_EQ(process->wait(), -1);
}

TEST(PosixProcess, TerminationBeforeTheLaunchIsLost) {
    const auto process = shell("printf done");
    process->terminate();
    ASSERT_TRUE(process->launch());
    EXPECT_EQ(process->readOutput(), "done");
    EXPECT_EQ(process->wait(), 0);
    process->terminate();
}

TEST(PosixProcess, BothStreamsMayHoldMoreThanAPipe) {
    const auto process = shell(
        "i=0; while [ $i -lt 4000 ]; do i=$((i+1));"
        " printf '%0100d' $i; printf '%0100d' $i >&2; done");
    ASSERT_TRUE(process->launch());
    std::string error;
    const auto reading = Task::start(TaskPriority::userInitiated,
                                     [&](const CancelToken&) { error = process->readError(); });
    const auto output = process->readOutput();
    reading.wait();
    EXPECT_EQ(output.size(), 400'000u);
    EXPECT_EQ(output, error);
    process->wait();
}

TEST(PosixProcess, AGrandchildThatKeepsThePipesDelaysNoReaderBeyondTheEnd) {
    const auto process = shell("sleep 1000 & printf $!; printf err >&2");
    ASSERT_TRUE(process->launch());
    std::string error;
    // Begins before the end, so that it has to be woken.
    const auto reading = Task::start(TaskPriority::userInitiated,
                                     [&](const CancelToken&) { error = process->readError(); });
    process->wait();
    const auto output = process->readOutput();
    reading.wait();
    EXPECT_EQ(error, "err");
    endGrandchild(output);
}

TEST(PosixProcess, OneHoldsNoPipeOfAnother) {
    const auto first = shell("cat");
    const auto second = shell("exec sleep 1000");
    ASSERT_TRUE(first->launch());
    ASSERT_TRUE(second->launch());
    first->writeInput("x");
    EXPECT_EQ(first->readOutput(), "x") << "or it would wait for the other to end";
    first->wait();
    EXPECT_TRUE(second->running());
    second->terminate();
    second->wait();
}

TEST(PosixProcess, InheritsNoDescriptorOfOthersThatRun) {
    const auto inherited = [] {
        const auto process = shell("ls /proc/self/fd");
        EXPECT_TRUE(process->launch());
        const auto output = process->readOutput();
        process->wait();
        return output;
    };
    const auto alone = inherited();
    const auto other = shell("read line");
    ASSERT_TRUE(other->launch());
    EXPECT_EQ(inherited(), alone);
    other->terminate();
    other->wait();
}

TEST(PosixProcess, StartsWhereTheStandardStreamsAreClosed) {
    const int kept = ::dup(STDIN_FILENO);
    ::close(STDIN_FILENO);
    const auto process = shell("cat; printf err >&2");
    const bool launched = process->launch();
    ::dup2(kept, STDIN_FILENO);
    ::close(kept);
    ASSERT_TRUE(launched);
    process->writeInput("in");
    EXPECT_EQ(process->readOutput(), "in");
    EXPECT_EQ(process->readError(), "err");
    process->wait();
}

TEST(PosixProcess, ReadingOutlastsInterruptions) {
    struct sigaction ours {
    }, before{};
    ours.sa_handler = [](int) {};
    ::sigaction(SIGUSR1, &ours, &before);
    const auto process = shell("cat; read more");
    ASSERT_TRUE(process->launch());
    std::string output;
    std::thread reader([&] { output = process->readOutput(); });
    for (int i = 0; i < 100; ++i) {
        ::pthread_kill(reader.native_handle(), SIGUSR1);
        std::this_thread::yield();
    }
    process->writeInput("all of it");
    reader.join();
    ::sigaction(SIGUSR1, &before, nullptr);
    EXPECT_EQ(output, "all of it");
    process->wait();
}

TEST(PosixProcess, OneThatIsForgottenIsReapedAllTheSame) {
    ASSERT_TRUE(shell("exit 0")->launch());
    ASSERT_TRUE(shell("read line")->launch());
    siginfo_t found{};
    while (::waitid(P_ALL, 0, &found, WEXITED | WNOHANG | WNOWAIT) == 0) std::this_thread::yield();
    EXPECT_EQ(errno, ECHILD);
}

TEST(PosixProcess, AThousandRunsLeaveNoDescriptorAndNoZombie) {
    const auto before = openDescriptors();
    for (int i = 0; i < 1000; ++i) {
        const auto process = shell("read line; printf \"$line\"");
        ASSERT_TRUE(process->launch());
        process->writeInput("x\n");
        ASSERT_EQ(process->readOutput(), "x");
        process->wait();
    }
    EXPECT_EQ(openDescriptors(), before);
    EXPECT_FALSE(hasZombie());
}

}  // namespace
}  // namespace brindlet
