#include <gtest/gtest.h>

#include <signal.h>
#include <QRegularExpression>

#include "desktop/Roles.h"
#include "desktop/TrayHost.h"
#include "desktop/Visit.h"

// The program around its window: the tray, the window's end and return, a second start.

namespace brindlet::desktop {
namespace {

constexpr int keyQ = 0x71;
constexpr int keyW = 0x77;
const std::string always = "---\nOpen Brindlet\nQuit";
const QString name = QStringLiteral("Brindlet");

QString busOf(const Visit& visit) {
    return visit.desktop().environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
}

void closeWindow(const Visit& visit) {
    visit.reader().await(role::frame, name);
    visit.reader().strikeWithControl(keyW);
    visit.reader().awaitNone(role::frame);
}

bool matches(const QString& text, const char* pattern) {
    const QRegularExpression lines(QRegularExpression::anchoredPattern(QString::fromUtf8(pattern)));
    return lines.match(text).hasMatch();
}

TEST(TrayByBus, TellsWhatGoesOnAndStopsIt) {
    Visit visit(1000);
    const auto& reader = visit.reader();
    reader.await(role::frame, name);
    // The desktop's panel may come long after the program.
    const TrayHost host(busOf(visit));
    EXPECT_EQ(host.property(QStringLiteral("Title")), name);
    host.awaitText("Nothing running\nAutomatic: Off\n" + always);
    for (const auto& line : host.menu()) {
        const bool command = always.find('\n' + line.text.toStdString()) != std::string::npos;
        EXPECT_EQ(line.enabled, command) << line.text.toStdString();
    }
    const auto idle = host.symbol();
    EXPECT_FALSE(idle.isEmpty());

    visit.start();
    visit.chooseTheWholeInbox();
    reader.press(role::button, QStringLiteral("Sort it"));
    host.await("a scan with its time left", [](const QString& text) {
        return matches(text,
                       "Sorting \\d+ / 500\n\\d+\\.\\d a second\nabout .* left\n---\nStop\n"
                       "---\nOpen Brindlet\nQuit");
    });
    EXPECT_TRUE(host.symbol() != idle);
    host.choose(QStringLiteral("Stop"));
    reader.await(role::button, QStringLiteral("Scan another"));
    host.await("the verdicts on hand", [](const QString& text) {
        return matches(text, "\\d+ junk of \\d+\nAutomatic: Off\n---\nOpen Brindlet\nQuit");
    });
    EXPECT_TRUE(host.symbol() == idle);

    reader.press(reader.awaitAny(QStringLiteral("the move"), [](const Thing& thing) {
        return thing.role == role::button && thing.name.startsWith(QStringLiteral("Move "));
    }));
    host.await("a move", [](const QString& text) {
        return matches(text, "Moving \\d+\u2026\n---\nOpen Brindlet\nQuit");
    });
    host.await("the rest after the move", [](const QString& text) {
        return matches(text, "0 junk of \\d+\nAutomatic: Off\n---\nOpen Brindlet\nQuit");
    });
}

TEST(TrayByBus, OpensTheWindowThatWasClosedAndQuits) {
    Visit visit;
    const TrayHost host(busOf(visit));
    visit.start();
    closeWindow(visit);
    host.awaitText("Nothing running\nAutomatic: Off\n" + always);
    EXPECT_TRUE(visit.program().runs());
    host.choose(QStringLiteral("Open Brindlet"));
    visit.reader().await(role::frame, name);
    visit.reader().await(role::heading, QStringLiteral("Choose a mailbox"));
    // What stands already stays.
    host.choose(QStringLiteral("Open Brindlet"));
    closeWindow(visit);
    host.activate();
    visit.reader().await(role::frame, name);
    closeWindow(visit);
    host.choose(QStringLiteral("Quit"));
    EXPECT_EQ(visit.program().end(), 0);
}

TEST(WithoutATray, ASecondStartBringsTheWindowBackAndTheKeysQuit) {
    Visit visit;
    closeWindow(visit);
    EXPECT_TRUE(visit.program().runs());
    const auto second = visit.startAgain();
    EXPECT_EQ(second->end(), 0);
    EXPECT_EQ(second->line().toStdString(),
              "Brindlet is running already; its window comes to the front.");
    visit.reader().await(role::frame, name);
    EXPECT_TRUE(visit.program().runs());
    visit.reader().await(role::button, QStringLiteral("Start"));
    visit.reader().strikeWithControl(keyQ);
    EXPECT_EQ(visit.program().end(), 0);
}

TEST(WithoutATray, AProgramThatWasKilledIsInNobodysWay) {
    Visit visit;
    visit.reader().await(role::frame, name);
    ::kill(static_cast<pid_t>(visit.program().pid()), SIGKILL);
    EXPECT_NE(visit.program().end(), 0);
    const auto next = visit.startAgain();
    const ScreenReader reader(visit.desktop().accessibility(), next->pid());
    reader.await(role::frame, name);
    EXPECT_TRUE(next->runs());
}

}  // namespace
}  // namespace brindlet::desktop
