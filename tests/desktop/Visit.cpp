#include "desktop/Visit.h"

#include <gtest/gtest.h>

#include <QSet>
#include <algorithm>
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
const QSet<QString> still{
    QStringLiteral("application"), QStringLiteral("frame"),         QStringLiteral("heading"),
    QStringLiteral("label"),       QStringLiteral("progress bar"),  QStringLiteral("list"),
    QStringLiteral("dialog"),      QStringLiteral("alert message"), QStringLiteral("text")};

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

Thing Visit::openAds() const {
    chooseTheWholeInbox();
    reader_.press(QStringLiteral("push button"), QStringLiteral("Sort it"));
    auto ads = reader_.awaitAny(QStringLiteral("the first category"), [](const Thing& thing) {
        return thing.role == QStringLiteral("push button") &&
               thing.name.startsWith(QStringLiteral("Ads & promotions, "));
    });
    EXPECT_EQ(ads.description.toStdString(), "JUNK, Collapsed");
    reader_.press(ads);
    reader_.await(ads.role, ads.name, [](const Thing& thing) {
        return thing.description == QStringLiteral("JUNK, Expanded");
    });
    return ads;
}

void Visit::expectAllCanBePressed() const {
    const auto isFine = [](const Thing* thing) {
        return still.contains(thing->role) ||
               (!thing->name.isEmpty() && thing->actions.contains(QStringLiteral("Press")));
    };
    reader_.awaitAny(QStringLiteral("a name and a press for everything"), [&](const Thing& whole) {
        return whole.role == QStringLiteral("application") &&
               std::ranges::all_of(whole.all(), isFine);
    });
}

}  // namespace brindlet::desktop
