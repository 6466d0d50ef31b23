#include "desktop/Visit.h"

#include <gtest/gtest.h>

#include <QSet>
#include <algorithm>
#include <iostream>

#include "desktop/Roles.h"

namespace brindlet::desktop {
namespace {

QProcessEnvironment forWindows(QProcessEnvironment environment) {
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    environment.insert(QStringLiteral("QT_QUICK_BACKEND"), QStringLiteral("software"));
    environment.insert(QStringLiteral("QT_SCALE_FACTOR"), QStringLiteral("1"));
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    // Without a screen reader's wish on the session bus the toolkit would stay silent.
    environment.insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
    return environment;
}

/// What is only looked at.
const QSet<QString> still{role::application, role::frame,       role::heading,
                          role::label,       role::progressBar, role::list,
                          role::dialog,      role::alert,       role::text};

/// "Ann <ann@house.example>", of a message's row.
QString senderOf(const Thing& message) {
    return message.name.section(QStringLiteral(", "), -1);
}

}  // namespace

Visit::Visit(int messages, const QStringList& options)
    : messages_(messages),
      program_(QStringLiteral(BRINDLET_DEMO), arguments() + options,
               forWindows(desktop_.environment()),
               desktop_.folder() + QStringLiteral("/program.log")),
      reader_(desktop_.accessibility(), program_.pid()) {
    EXPECT_EQ(desktop_.problem().toStdString(), "");
    // Where a display without a mouse has it, in the middle, something would always be hovered.
    reader_.movePointer(1270, 890);
}

Visit::~Visit() {
    if (testing::Test::HasFailure())
        std::cerr << (program_.runs() ? "The program runs.\n" : "The program has ended.\n")
                  << program_.errors().toStdString();
}

QStringList Visit::arguments() const {
    return {QStringLiteral("--first-time"), QStringLiteral("--messages"),
            QString::number(messages_), QStringLiteral("--keep"),
            desktop_.folder() + QStringLiteral("/demo")};
}

std::unique_ptr<Child> Visit::startAgain() const {
    return std::make_unique<Child>(QStringLiteral(BRINDLET_DEMO), arguments(),
                                   forWindows(desktop_.environment()),
                                   desktop_.folder() + QStringLiteral("/again.log"));
}

void Visit::start() const {
    reader_.press(role::button, QStringLiteral("Start"));
    reader_.await(role::list, QStringLiteral("Mailboxes"));
}

void Visit::chooseTheWholeInbox() const {
    reader_.press(role::radioButton, QStringLiteral("INBOX"));
    reader_.press(role::comboBox, QStringLiteral("HOW FAR BACK"));
    reader_.press(role::listItem, QStringLiteral("Everything"));
    reader_.await(role::label, QStringLiteral("%1 to sort").arg(messages_ / 2));
}

Thing Visit::openAds() const {
    chooseTheWholeInbox();
    reader_.press(role::button, QStringLiteral("Sort it"));
    auto ads = reader_.awaitAny(QStringLiteral("the first category"), [](const Thing& thing) {
        return thing.role == role::button &&
               thing.name.startsWith(QStringLiteral("Ads & promotions, "));
    });
    EXPECT_EQ(ads.description.toStdString(), "JUNK, Collapsed");
    reader_.press(ads);
    reader_.await(ads.role, ads.name, [](const Thing& thing) {
        return thing.description == QStringLiteral("JUNK, Expanded");
    });
    return ads;
}

bool Visit::isMessage(const Thing& thing) {
    return thing.role == role::checkBox && thing.name.endsWith(u'>');
}

std::pair<Thing, Thing> Visit::twoOfOneSender() const {
    const auto messages = reader_.await(role::list, QStringLiteral("Messages"));
    const auto isTicked = [](const Thing& thing) {
        return isMessage(thing) && thing.is(Thing::checked);
    };
    for (const auto& one : messages.children)
        for (const auto& other : messages.children)
            if (isTicked(one) && isTicked(other) && one.name != other.name &&
                senderOf(one) == senderOf(other))
                return {one, other};
    ADD_FAILURE() << "no two of one sender\n" << messages.printed().toStdString();
    return {};
}

void Visit::expectAllCanBePressed() const {
    const auto isFine = [](const Thing* thing) {
        return still.contains(thing->role) ||
               (!thing->name.isEmpty() && thing->actions.contains(QStringLiteral("Press")));
    };
    reader_.awaitAny(QStringLiteral("a name and a press for everything"), [&](const Thing& whole) {
        return whole.role == role::application && std::ranges::all_of(whole.all(), isFine);
    });
}

}  // namespace brindlet::desktop
