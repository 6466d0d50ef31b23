#include <gtest/gtest.h>

#include <QFile>
#include <QFileInfo>
#include <optional>

#include "desktop/Visit.h"

namespace brindlet::desktop {
namespace {

const QString button = QStringLiteral("push button");
const QString checkBox = QStringLiteral("check box");
const QString radioButton = QStringLiteral("radio button");
const QString comboBox = QStringLiteral("combo box");
const QString listItem = QStringLiteral("list item");
const QString list = QStringLiteral("list");
const QString label = QStringLiteral("label");
const QString heading = QStringLiteral("heading");

bool isChecked(const Thing& thing) {
    return thing.is(Thing::checked);
}

bool isUnchecked(const Thing& thing) {
    return !isChecked(thing) && !thing.is(Thing::indeterminate);
}

ScreenReader::Condition tells(const QString& description) {
    return [=](const Thing& thing) { return thing.description == description; };
}

TEST(Desktop, LeavesNothingBehind) {
    std::optional<Desktop> desktop(std::in_place);
    ASSERT_EQ(desktop->problem().toStdString(), "");
    const auto folder = desktop->folder();
    const auto socket = QStringLiteral("/tmp/.X11-unix/X") +
                        desktop->environment().value(QStringLiteral("DISPLAY")).mid(1);
    EXPECT_TRUE(QFileInfo::exists(socket));
    desktop.reset();
    EXPECT_FALSE(QFileInfo::exists(socket));
    EXPECT_FALSE(QFileInfo::exists(folder));
    EXPECT_TRUE(children().isEmpty());
}

TEST(VisitByBus, WelcomeAndMailboxesTellAllAboutThemselves) {
    const Visit visit;
    const auto& reader = visit.reader();
    reader.await(QStringLiteral("frame"), QStringLiteral("Brindlet"));
    reader.await(heading, QStringLiteral("Brindlet"));
    reader.await(label, QStringLiteral("Nothing uploaded"));
    visit.expectAllCanBePressed();
    reader.press(button, QStringLiteral("Start"));
    reader.await(heading, QStringLiteral("Choose a mailbox"));

    const auto inbox = QStringLiteral("INBOX");
    const auto news =
        QStringLiteral("START HERE, what's sitting in your inbox now, 500 new, never sorted");
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
    const Visit visit;
    const auto& reader = visit.reader();
    visit.start();
    visit.chooseTheWholeInbox();
    reader.press(button, QStringLiteral("Sort it"));
    reader.awaitAny(QStringLiteral("a share above none"), [](const Thing& thing) {
        return thing.role == QStringLiteral("progress bar") && thing.description.endsWith(u'%') &&
               thing.description != QStringLiteral("0%");
    });
    visit.expectAllCanBePressed();
    reader.press(button, QStringLiteral("Stop"));
    reader.await(button, QStringLiteral("Scan another"));
}

TEST(VisitByBus, ACategoryOpensToItsMessages) {
    const Visit visit;
    const auto& reader = visit.reader();
    visit.start();
    visit.chooseTheWholeInbox();
    reader.press(button, QStringLiteral("Sort it"));
    reader.await(button, QStringLiteral("Scan another"));
    const auto isAds = [](const Thing& thing) {
        return thing.name.startsWith(QStringLiteral("Ads & promotions, "));
    };
    const auto ads = reader.awaitAny(QStringLiteral("the first category"), isAds);
    EXPECT_EQ(ads.role.toStdString(), "push button");
    EXPECT_EQ(ads.description.toStdString(), "JUNK, Collapsed");
    visit.expectAllCanBePressed();
    reader.press(ads);
    reader.await(button, ads.name, tells(QStringLiteral("JUNK, Expanded")));
    reader.awaitAny(QStringLiteral("a ticked message"),
                    [](const Thing& thing) { return thing.role == listItem && isChecked(thing); });
    reader.press(ads);
    reader.await(button, ads.name, tells(QStringLiteral("JUNK, Collapsed")));
}

}  // namespace
}  // namespace brindlet::desktop
