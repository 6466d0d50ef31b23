#include <QTest>

#include "screens/Stage.h"

namespace brindlet::testing {

class ScreensTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void welcomeStandsFirst();
    void permission();
    void pick();
    void scanning();
    void results();
};

void look(Stage& stage, const QString& name) {
    stage.picture(QStringLiteral("dark-") + name);
    stage.model().setDark(false);
    stage.picture(QStringLiteral("light-") + name);
    stage.window()->resize(980, 640);
    stage.picture(QStringLiteral("light-small-") + name);
    stage.model().setDark(true);
    stage.picture(QStringLiteral("dark-small-") + name);
    QCOMPARE(stage.main->warnings(), QStringList());
}

void ScreensTest::welcomeStandsFirst() {
    Stage stage;
    QVERIFY(stage.find("start"));
    look(stage, "1-welcome");
}

void ScreensTest::permission() {
    Stage stage([](AppState& state) { state.navigate(AppState::Screen::permission); });
    look(stage, "2-permission");
}

void ScreensTest::pick() {
    Stage stage([](AppState& state) {
        state.accounts.set(
            {account("ada@example.org",
                     {folder(1, "INBOX", 1834), folder(2, "Junk", 212), folder(3, "Receipts", 64),
                      folder(4, "Projects/Harbour House with a rather long name", 31),
                      folder(5, "Travel", 0), folder(6, "Archive", 12044), folder(7, "Sent", 902),
                      folder(8, "Drafts", 3), folder(9, "Trash", 44)}),
             account("ada.work@example.net", {folder(11, "INBOX", 5)})});
        state.selectAccount(state.accounts->front());
        state.seen.mark({"a", "b"}, true, "ada@example.org", "INBOX");
        state.inReach.set(1832);
        state.folderVanished.set("Old/Lists");
        state.navigate(AppState::Screen::pick);
    });
    look(stage, "3-pick-nothing");
    stage.state->dismissVanished();
    stage.state->folder.set(stage.state->account->value().folders[0]);
    look(stage, "4-pick");
    stage.window()->resize(1080, 740);
    QVERIFY(stage.click("limit"));
    stage.picture("dark-5-pick-menu");
}

void ScreensTest::scanning() {
    Stage stage([](AppState& state) {
        state.account.set(account("ada@example.org", {folder(1, "INBOX", 1834)}));
        state.folder.set(state.account->value().folders[0]);
        state.stage.set("Sorting 1,622 new - skipped 212 already sorted");
        state.running.set(true);
        state.total.set(50000);
        state.done.set(38000);
        state.rate.set(41.7);
        state.eta.set(288.0);
        state.skipped.set(212);
        state.verdicts.set(verdicts(300));
        state.navigate(AppState::Screen::scanning);
    });
    look(stage, "6-scanning");
}

void ScreensTest::results() {
    Stage stage([](AppState& state) {
        state.account.set(account("ada@example.org", {folder(1, "INBOX", 1834)}));
        state.folder.set(state.account->value().folders[0]);
        state.verdicts.set(verdicts(50000));
        AppState::Ids ticked;
        for (const auto& verdict : *state.verdicts)
            if (verdict.isJunk && verdict.messageID) ticked.insert(verdict.id);
        state.approved.set(ticked);
        state.skipped.set(212);
        state.navigate(AppState::Screen::results);
    });
    look(stage, "7-results");
    stage.window()->resize(1080, 740);
    QVERIFY(stage.click("category0"));
    look(stage, "8-open");
    stage.state->verdicts.set(VerdictList());
    stage.state->scanError.set(
        "Brindlet could only read 499 of 1,000 messages on disk, so this scan was stopped before "
        "it "
        "wasted your time. This normally means Full Disk Access was lost - quit Brindlet and open "
        "it "
        "again.");
    look(stage, "9-stopped");
    stage.state->scanError.set(std::nullopt);
    look(stage, "10-nothing");
}

}  // namespace brindlet::testing

QTEST_MAIN(brindlet::testing::ScreensTest)
#include "ScreensTest.moc"
