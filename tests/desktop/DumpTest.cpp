#include "desktop/Dump.h"

#include <gtest/gtest.h>

#include <QDir>

#include "desktop/Roles.h"
#include "desktop/Visit.h"

namespace brindlet::desktop {
namespace {

using namespace role;

// To keep the dump of one more screen: go there, then `expectDump(reader, name)`, then
// tools/accept.

TEST(DumpByBus, EveryScreenOfAFirstVisit) {
    const Visit visit(400, {QStringLiteral("--on-battery")});
    const auto& reader = visit.reader();
    expectDump(reader, QStringLiteral("welcome"));
    visit.start();
    expectDump(reader, QStringLiteral("pick"));
    reader.press(comboBox, QStringLiteral("HOW FAR BACK"));
    expectDump(reader, QStringLiteral("pick-menu"));
    reader.press(comboBox, QStringLiteral("HOW FAR BACK"));
    visit.chooseTheWholeInbox();
    expectDump(reader, QStringLiteral("pick-chosen"));

    reader.press(button, QStringLiteral("Sort it"));
    const auto goOn = QStringLiteral("Keep scanning on battery power");
    reader.await(checkBox, goOn);
    expectDump(reader, QStringLiteral("scanning"));
    reader.press(checkBox, goOn);

    const auto ads = reader.awaitAny(QStringLiteral("the first category"), [](const Thing& thing) {
        return thing.role == button && thing.name.startsWith(QStringLiteral("Ads & promotions, "));
    });
    expectDump(reader, QStringLiteral("results"));
    reader.press(ads);
    reader.await(list, QStringLiteral("Messages"));
    expectDump(reader, QStringLiteral("results-open"));
    const auto bySender = QStringLiteral("By sender");
    reader.press(button, bySender);
    expectDump(reader, QStringLiteral("results-senders"));
    reader.press(button, bySender);

    reader.press(visit.twoOfOneSender().first);
    reader.awaitAny(QStringLiteral("an offer"),
                    [](const Thing& thing) { return thing.role == alert; });
    expectDump(reader, QStringLiteral("results-offer"));

    reader.press(button, QStringLiteral("Rules (1)"));
    reader.await(heading, QStringLiteral("Rules"));
    expectDump(reader, QStringLiteral("rules"));
    reader.press(button, QStringLiteral("Back"));
    reader.press(button, QStringLiteral("History"));
    reader.await(heading, QStringLiteral("History"));
    expectDump(reader, QStringLiteral("history"));
}

TEST(DumpByBus, TheSchedule) {
    const Visit visit;
    const auto& reader = visit.reader();
    visit.start();
    reader.press(button, QStringLiteral("Back"));
    reader.press(button, QStringLiteral("Automatic sorting"));
    reader.await(heading, QStringLiteral("Automatic sorting"));
    expectDump(reader, QStringLiteral("automatic-off"));
    reader.press(checkBox, QStringLiteral("Sort on a schedule"));
    reader.await(button, QStringLiteral("Run now"));
    expectDump(reader, QStringLiteral("automatic"));
}

TEST(DumpByBus, NoPermission) {
    const Visit visit;
    const auto mail = visit.desktop().folder() + QStringLiteral("/demo/home/Library/Mail");
    visit.reader().await(button, QStringLiteral("Start"));
    ASSERT_TRUE(QDir().rename(mail, mail + QStringLiteral(".away")));
    visit.reader().press(button, QStringLiteral("Start"));
    visit.reader().await(heading, QStringLiteral("One permission"));
    expectDump(visit.reader(), QStringLiteral("permission"));
}

TEST(DumpByBus, NoModel) {
    const Visit visit(400, {QStringLiteral("--without-model")});
    visit.reader().await(heading, QStringLiteral("Not available"));
    expectDump(visit.reader(), QStringLiteral("unsupported"));
}

TEST(DumpByBus, TheQuestionAboutGmail) {
    const Visit visit;
    const auto& reader = visit.reader();
    visit.start();
    reader.press(comboBox, QStringLiteral("Account"));
    reader.press(reader.awaitAny(QStringLiteral("the Gmail account"), [](const Thing& thing) {
        return thing.role == listItem && thing.name.contains(QStringLiteral("gmail"));
    }));
    reader.await(button, QStringLiteral("Connect Gmail"));
    expectDump(reader, QStringLiteral("pick-gmail"));
    reader.press(button, QStringLiteral("Connect Gmail"));
    reader.await(button, QStringLiteral("Allow"));
    expectDump(reader, QStringLiteral("gmail-ask"));
    reader.press(button, QStringLiteral("Allow"));
    reader.await(button, QStringLiteral("Check and save"));
    expectDump(reader, QStringLiteral("gmail-app-password"));
}

TEST(Masked, LeavesOutMomentsAndNothingElse) {
    EXPECT_EQ(masked(QStringLiteral("list item \"Nov 22, 2026, 1:05\u202fAM, sorted just now, 200 "
                                    "of 200, 3 minutes ago\"")),
              QStringLiteral("list item \"<date>, sorted <ago>, 200 of 200, <ago>\""));
}

TEST(LineDifference, ShowsWhatGoesAndComesWithItsSurroundings) {
    EXPECT_EQ(lineDifference(QStringLiteral("a\nb"), QStringLiteral("a\nb")), QString());
    EXPECT_EQ(lineDifference(QStringLiteral("a\nb\nc\nd\ne\nf\ng"),
                             QStringLiteral("a\nb\nc\nd\nx\nf\ng\nh"))
                  .toStdString(),
              "  ...\n  c\n  d\n- e\n+ x\n  f\n  g\n+ h\n");
    EXPECT_EQ(lineDifference(QString(), QStringLiteral("a")).toStdString(), "- \n+ a\n");
}

}  // namespace
}  // namespace brindlet::desktop
