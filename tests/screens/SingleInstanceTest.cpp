#include "app/SingleInstance.h"

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <QLocalSocket>
#include <QMetaObject>
#include <QSignalSpy>
#include <QTest>
#include <atomic>
#include <memory>
#include <thread>
#include <vector>

#include "base/Files.h"
#include "doubles/Doubles.h"

namespace brindlet {
namespace {

using doubles::TemporaryDirectories;
using Found = SingleInstance::Found;

/// Another start beside a running one, which must answer meanwhile.
Found startBeside(const Directories& directories) {
    std::atomic<bool> ended = false;
    Found found{};
    std::thread other([&] {
        SingleInstance instance(directories);
        found = instance.claim();
        ended = true;
    });
    (void)QTest::qWaitFor([&] { return ended.load(); }, 15'000);
    other.join();
    return found;
}

/// No folder of the session's own, and nothing that the desktop says of the start.
class SingleInstanceTest : public testing::Test {
  protected:
    void SetUp() override {
        for (const auto* name : {"XDG_RUNTIME_DIR", "XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID"})
            qunsetenv(name);
    }
    TemporaryDirectories directories;
};

TEST_F(SingleInstanceTest, TheSecondOverAStoreRaisesTheFirst) {
    SingleInstance first(directories);
    ASSERT_EQ(first.claim(), Found::nobody);
    first.listen();
    const QSignalSpy raised(&first, &SingleInstance::raiseAsked);
    EXPECT_EQ(startBeside(directories), Found::another);
    EXPECT_EQ(startBeside(directories), Found::another);
    ASSERT_EQ(raised.count(), 2);
    EXPECT_EQ(raised[0][0].toByteArray(), "");
}

TEST_F(SingleInstanceTest, TheTokenOfTheDesktopTravelsAlong) {
    SingleInstance first(directories);
    first.claim();
    first.listen();
    const QSignalSpy raised(&first, &SingleInstance::raiseAsked);
    qputenv("DESKTOP_STARTUP_ID", "panel-7_TIME1234");
    startBeside(directories);
    qputenv("XDG_ACTIVATION_TOKEN", "c0ffee");
    startBeside(directories);
    ASSERT_EQ(raised.count(), 2);
    EXPECT_EQ(raised[0][0].toByteArray(), "panel-7_TIME1234");
    EXPECT_EQ(raised[1][0].toByteArray(), "c0ffee");
}

TEST_F(SingleInstanceTest, OneThatComesBeforeTheLoopRunsWaitsForIt) {
    SingleInstance first(directories);
    first.claim();
    QMetaObject::invokeMethod(
        &first, [&] { first.listen(); }, Qt::QueuedConnection);
    EXPECT_EQ(startBeside(directories), Found::another);
}

TEST_F(SingleInstanceTest, OneThatDoesNotAnswerIsToldOf) {
    SingleInstance first(directories);
    first.claim();
    SingleInstance second(directories, 20);
    EXPECT_EQ(second.claim(), Found::silent);
    EXPECT_TRUE(files::exists(first.path()));
}

TEST_F(SingleInstanceTest, StoresAreApart) {
    const TemporaryDirectories elsewhere;
    qputenv("XDG_RUNTIME_DIR", QByteArray::fromStdString(directories.temporary()));
    ASSERT_EQ(::chmod(directories.temporary().c_str(), 0700), 0);
    SingleInstance first(directories);
    SingleInstance other(elsewhere);
    EXPECT_EQ(first.claim(), Found::nobody);
    EXPECT_EQ(other.claim(), Found::nobody);
    EXPECT_NE(first.path(), other.path());
    EXPECT_EQ(first.path().substr(0, first.path().rfind('/')),
              other.path().substr(0, other.path().rfind('/')));
}

TEST_F(SingleInstanceTest, AFolderOfTheSessionThatOthersCanReadIsNotTaken) {
    const TemporaryDirectories open;
    ASSERT_EQ(::chmod(open.temporary().c_str(), 0755), 0);
    qputenv("XDG_RUNTIME_DIR", QByteArray::fromStdString(open.temporary()));
    EXPECT_TRUE(SingleInstance(directories).path().starts_with(directories.temporary() + '/'));
    qputenv("XDG_RUNTIME_DIR", "relative");
    EXPECT_TRUE(SingleInstance(directories).path().starts_with(directories.temporary() + '/'));
}

TEST_F(SingleInstanceTest, NobodyElseMayConnect) {
    SingleInstance first(directories);
    first.claim();
    struct stat status {};
    ASSERT_EQ(::stat(first.path().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0600u);
}

TEST_F(SingleInstanceTest, WhatACrashLeftIsTaken) {
    const auto path = SingleInstance(directories).path();
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    // A socket that was bound and never removed, as by a program that was killed.
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(::bind(socket, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    ::close(socket);
    ASSERT_TRUE(files::exists(path));
    SingleInstance next(directories);
    EXPECT_EQ(next.claim(), Found::nobody);
    next.listen();
    EXPECT_EQ(startBeside(directories), Found::another);
}

TEST_F(SingleInstanceTest, AfterTheEndTheNextIsTheOne) {
    SingleInstance first(directories);
    first.claim();
    first.listen();
    first.end();
    EXPECT_FALSE(files::exists(first.path()));
    SingleInstance next(directories);
    EXPECT_EQ(next.claim(), Found::nobody);
    next.listen();
    EXPECT_EQ(startBeside(directories), Found::another);
}

TEST_F(SingleInstanceTest, OfManyStartsAtOnceOneIsTheOne) {
    constexpr int starts = 8;
    std::atomic<int> ones = 0;
    std::vector<std::unique_ptr<SingleInstance>> all;
    for (int i = 0; i < starts; ++i) all.push_back(std::make_unique<SingleInstance>(directories));
    std::atomic<int> ended = 0;
    std::vector<std::thread> threads;
    std::atomic<SingleInstance*> winner = nullptr;
    for (auto& each : all)
        threads.emplace_back([&, instance = each.get()] {
            if (instance->claim() == Found::nobody) {
                ++ones;
                winner = instance;
            }
            ++ended;
        });
    (void)QTest::qWaitFor([&] { return winner.load() != nullptr; });
    winner.load()->listen();
    (void)QTest::qWaitFor([&] { return ended.load() == starts; }, 15'000);
    for (auto& thread : threads) thread.join();
    EXPECT_EQ(ones.load(), 1);
}

TEST_F(SingleInstanceTest, WhoSaysNothingAndWhoNeverEndsHoldNobodyUp) {
    SingleInstance first(directories);
    first.claim();
    first.listen();
    const QSignalSpy raised(&first, &SingleInstance::raiseAsked);
    QLocalSocket mute;
    mute.connectToServer(QString::fromStdString(first.path()));
    QLocalSocket endless;
    endless.connectToServer(QString::fromStdString(first.path()));
    endless.write(QByteArray(100'000, 'x'));
    EXPECT_TRUE(QTest::qWaitFor([&] { return endless.state() == QLocalSocket::UnconnectedState; }));
    EXPECT_EQ(raised.count(), 0);
    EXPECT_EQ(startBeside(directories), Found::another);
    EXPECT_EQ(raised.count(), 1);
}

TEST_F(SingleInstanceTest, WithoutAFolderThatCanBeUsedItGoesOnAlone) {
    qputenv("XDG_RUNTIME_DIR", "");
    struct Deep : TemporaryDirectories {
        std::string temporary() const override {
            return TemporaryDirectories::temporary() + '/' + std::string(120, 'd');
        }
    };
    SingleInstance instance(Deep{});
    EXPECT_EQ(instance.claim(), Found::nobody);
    instance.listen();
}

}  // namespace
}  // namespace brindlet
