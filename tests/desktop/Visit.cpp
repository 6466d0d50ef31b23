#include "desktop/Visit.h"

#include <gtest/gtest.h>

#include <QSet>
#include <iostream>

namespace brindlet::desktop {
namespace {

QProcessEnvironment forWindows(QProcessEnvironment environment) {
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    environment.insert(QStringLiteral("QT_QUICK_BACKEND"), QStringLiteral("software"));
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("1"));
    // Without a screen reader's wish on the session bus the toolkit would stay silent.
    environment.insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
    return environment;
}

/// What is only looked at.
const QSet<QString> still{QStringLiteral("application"),  QStringLiteral("frame"),
                          QStringLiteral("heading"),      QStringLiteral("label"),
                          QStringLiteral("progress bar"), QStringLiteral("list"),
                          QStringLiteral("dialog")};

}  // namespace

Visit::Visit()
    : program_(QStringLiteral(BRINDLET_DEMO),
               // As many as keep the scan on the screen long enough for a look at it.
               {QStringLiteral("--messages"), QStringLiteral("1000")},
               forWindows(desktop_.environment()),
               desktop_.folder() + QStringLiteral("/program.log")),
      reader_(desktop_.accessibility(), program_.pid()) {
    EXPECT_EQ(desktop_.problem().toStdString(), "");
}

Visit::~Visit() {
    if (testing::Test::HasFailure())
        std::cerr << (program_.runs() ? "The program runs.\n" : "The program has ended.\n")
                  << program_.errors().toStdString();
}

void Visit::start() const {
    reader_.press(QStringLiteral("push button"), QStringLiteral("Start"));
    reader_.await(QStringLiteral("list"), QStringLiteral("Mailboxes"));
}

void Visit::chooseTheWholeInbox() const {
    reader_.press(QStringLiteral("radio button"), QStringLiteral("INBOX"));
    reader_.press(QStringLiteral("combo box"), QStringLiteral("HOW FAR BACK"));
    reader_.press(QStringLiteral("list item"), QStringLiteral("Everything"));
    reader_.await(QStringLiteral("label"), QStringLiteral("500 to sort"));
}

void Visit::expectAllCanBePressed() const {
    const auto everything = reader_.everything();
    for (const auto* thing : everything.all()) {
        if (still.contains(thing->role)) continue;
        EXPECT_FALSE(thing->name.isEmpty()) << thing->printed().toStdString();
        EXPECT_TRUE(thing->actions.contains(QStringLiteral("Press")))
            << thing->printed().toStdString();
    }
}

}  // namespace brindlet::desktop
