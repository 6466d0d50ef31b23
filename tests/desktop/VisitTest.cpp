#include <gtest/gtest.h>

#include <QFileInfo>
#include <algorithm>
#include <optional>

#include "desktop/Roles.h"
#include "desktop/Visit.h"

namespace brindlet::desktop {
namespace {

using namespace role;

bool isChecked(const Thing& thing) {
    return thing.is(Thing::checked);
}

bool isUnchecked(const Thing& thing) {
    return !isChecked(thing) && !thing.is(Thing::indeterminate);
}

ScreenReader::Condition tells(const QString& description) {
    return [=](const Thing& thing) { return thing.description == description; };
}

/// A question and why it is asked, told at once and again by themselves, and three answers or more.
bool isOffer(const Thing& bar) {
    const auto& parts = bar.children;
    return bar.role == alert && parts.size() >= 5 && parts[0].role == label &&
           parts[0].name == bar.name && parts[1].role == label &&
           parts[1].name == bar.description && !bar.name.isEmpty() &&
           parts[parts.size() - 2].name == QStringLiteral("Always") &&
           parts[parts.size() - 2].description ==
               QStringLiteral("Change these, and keep the rule for good") &&
           parts.back().name == QStringLiteral("Not this time");
}

TEST(Desktop, LeavesNothingBehind) {
    std::optional<Desktop> desktop(std::in_place);
    ASSERT_EQ(desktop->problem().toStdString(), "");
    const auto folder = desktop->folder();
    const auto socket = QStringLiteral("/tmp/.X11-unix/X") +
                        desktop->environment().value(QStringLiteral("DISPLAY")).mid(1);
    EXPECT_TRUE(QFileInfo::exists(folder));
    desktop.reset();
    EXPECT_FALSE(QFileInfo::exists(socket));
    EXPECT_FALSE(QFileInfo::exists(folder));
    EXPECT_TRUE(children().isEmpty());
}

TEST(VisitByBus, WelcomeAndMailboxesTellAllAboutThemselves) {
    const Visit visit;
    const auto& reader = visit.reader();
    reader.await(frame, QStringLiteral("Brindlet"));
    reader.await(heading, QStringLiteral("Brindlet"));
    reader.await(label, QStringLiteral("Nothing uploaded"));
    visit.expectAllCanBePressed();
    reader.press(button, QStringLiteral("Start"));
    reader.await(heading, QStringLiteral("Choose a mailbox"));

    const auto inbox = QStringLiteral("INBOX");
    const auto news =
        QStringLiteral("START HERE, what's sitting in your inbox now, 200 new, never sorted");
    EXPECT_TRUE(isUnchecked(reader.await(radioButton, inbox, tells(news))));
    visit.expectAllCanBePressed();
    reader.press(radioButton, inbox);
    reader.await(radioButton, inbox, isChecked);
    reader.press(radioButton, QStringLiteral("Junk"));
    reader.await(radioButton, inbox, isUnchecked);
    reader.await(radioButton, QStringLiteral("Junk"), isChecked);

    const auto reach = QStringLiteral("HOW FAR BACK");
    reader.await(comboBox, reach, tells(QStringLiteral("Past month")));
    reader.press(comboBox, reach);
    reader.await(list, reach);
    reader.await(listItem, QStringLiteral("Past month"),
                 [](const Thing& thing) { return thing.is(Thing::selected); });
    visit.expectAllCanBePressed();
    reader.press(listItem, QStringLiteral("Past year"));
    reader.await(comboBox, reach, tells(QStringLiteral("Past year")));

    const auto skip = QStringLiteral("Nothing here was filed by Brindlet yet");
    reader.await(checkBox, skip, isChecked);
    reader.press(checkBox, skip);
    reader.await(checkBox, skip, isUnchecked);

    reader.press(button, QStringLiteral("Back"));
    reader.await(button, QStringLiteral("Start"));
}

TEST(VisitByBus, AScanTellsItsShareAndStops) {
    // As many as keep the scan on the screen long enough for a look at it.
    const Visit visit(1000);
    const auto& reader = visit.reader();
    visit.start();
    visit.chooseTheWholeInbox();
    reader.press(button, QStringLiteral("Sort it"));
    reader.awaitAny(QStringLiteral("a share above none"), [](const Thing& thing) {
        return thing.role == progressBar && thing.description.endsWith(u'%') &&
               thing.description != QStringLiteral("0%");
    });
    visit.expectAllCanBePressed();
    reader.press(button, QStringLiteral("Stop"));
    reader.await(button, QStringLiteral("Scan another"));
}

TEST(VisitByBus, ACategoryOpensGroupsAndTicksAsAWhole) {
    const Visit visit;
    const auto& reader = visit.reader();
    visit.start();
    const auto ads = visit.openAds();
    visit.expectAllCanBePressed();

    const auto bySender = QStringLiteral("By sender");
    reader.await(button, bySender,
                 tells(QStringLiteral("One row per sender instead of one per "
                                      "message")));
    reader.press(button, bySender);
    reader.await(button, bySender, isChecked);
    const auto opener = reader.awaitAny(QStringLiteral("a sender"), [](const Thing& thing) {
        return thing.role == button &&
               thing.description.endsWith(QStringLiteral("from this sender, Collapsed"));
    });
    visit.expectAllCanBePressed();
    const auto senders = reader.await(list, QStringLiteral("Messages"));
    EXPECT_TRUE(std::ranges::none_of(senders.children, Visit::isMessage));
    reader.press(opener);
    reader.awaitAny(QStringLiteral("the sender, open"), [&](const Thing& thing) {
        return thing.role == button && thing.name == opener.name &&
               thing.description.endsWith(QStringLiteral("Expanded"));
    });
    const auto first = reader.awaitAny(QStringLiteral("a message of the sender"), Visit::isMessage);
    const auto sender = [&](const Thing& thing) {
        return thing.role == checkBox && thing.name.startsWith(opener.name + u',');
    };
    EXPECT_TRUE(isChecked(reader.awaitAny(QStringLiteral("the sender's row"), sender)));
    reader.press(first);
    reader.awaitAny(QStringLiteral("the sender's row, partly ticked"), [&](const Thing& thing) {
        return sender(thing) && thing.is(Thing::indeterminate) &&
               thing.description.contains(QStringLiteral("Tick everything from this sender"));
    });

    const auto all = QStringLiteral("Ads & promotions");
    reader.await(checkBox, all, [](const Thing& thing) {
        return thing.is(Thing::indeterminate) &&
               thing.description.startsWith(QStringLiteral("Tick this whole category"));
    });
    reader.press(checkBox, all);
    reader.await(label, QStringLiteral("ticked all ads & promotions"));
    reader.await(checkBox, all, [](const Thing& thing) {
        return isChecked(thing) &&
               thing.description.startsWith(QStringLiteral("Untick this whole category"));
    });
    reader.awaitAny(QStringLiteral("the sender's row, ticked"),
                    [&](const Thing& thing) { return sender(thing) && isChecked(thing); });
    reader.press(button, QStringLiteral("Undo"));
    reader.await(checkBox, first.name, isUnchecked);

    reader.press(ads);
    reader.await(button, ads.name, tells(QStringLiteral("JUNK, Last reviewed, Collapsed")));
    const auto jump = reader.await(button, QStringLiteral("Last reviewed"),
                                   tells(QStringLiteral("Last reviewed - click to jump there")));
    reader.press(jump);
    reader.await(button, ads.name, tells(QStringLiteral("JUNK, Last reviewed, Expanded")));
}

TEST(VisitByBus, ACorrectionIsOfferedForTheOthersAndTakenBack) {
    const Visit visit;
    const auto& reader = visit.reader();
    visit.start();
    visit.openAds();
    const auto [one, other] = visit.twoOfOneSender();

    reader.press(one);
    reader.await(checkBox, one.name, [](const Thing& thing) {
        return isUnchecked(thing) &&
               thing.description ==
                   QStringLiteral("Will stay put - Brindlet will remember this sender");
    });
    reader.await(button, QStringLiteral("Rules (1)"));
    reader.awaitAny(QStringLiteral("an offer"), isOffer);
    visit.expectAllCanBePressed();
    reader.press(button, QStringLiteral("Not this time"));
    reader.awaitNone(alert);
    reader.await(checkBox, other.name, isChecked);

    reader.press(one);
    reader.await(checkBox, one.name, isChecked);
    reader.press(one);
    reader.press(button, QStringLiteral("Every Ads & promotions from this sender"));
    reader.awaitNone(alert);
    reader.await(checkBox, other.name, isUnchecked);
    const auto undo = reader.await(button, QStringLiteral("Undo"));
    const auto count = undo.description.section(u' ', 2, 2);
    EXPECT_EQ(undo.description.toStdString(),
              "Put those " + count.toStdString() + " messages back exactly as they were");
    reader.await(label, QStringLiteral("unticked ") + count);

    reader.press(undo);
    reader.await(checkBox, other.name, isChecked);
    reader.await(checkBox, one.name, isUnchecked);
    reader.awaitNone(button, QStringLiteral("Undo"));
}

}  // namespace
}  // namespace brindlet::desktop
