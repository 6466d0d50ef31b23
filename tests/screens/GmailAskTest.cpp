#include <QSignalSpy>

#include "screens/GmailStage.h"
#include "screens/look/Tone.h"

namespace brindlet::testing {
namespace {

constexpr const char* connected = "Connected. Junk will really leave this inbox now.";
constexpr const char* refused =
    "Gmail refused the sign-in: Gmail refused that app password. Check it was generated for this "
    "account and copied whole.";

TEST(GmailAsk, StandsOverWhatItInterrupts) {
    GmailStage stage;
    EXPECT_FALSE(stage.stands("gmailAsk"));
    ASSERT_TRUE(stage.click("sort"));
    ASSERT_NE(stage.await("gmailAsk"), nullptr);
    EXPECT_EQ(stage.text("askedAddress"), GmailStage::address);
    EXPECT_FALSE(*stage.state->running);
    EXPECT_EQ(stage.state->askThen, AppState::GmailThen::scan);
    EXPECT_FALSE(stage.stands("passwordPanel"));
    EXPECT_EQ(stage.text("allowGmail"), "Allow");
    // What lies beneath is out of reach.
    ASSERT_TRUE(stage.click("back"));
    EXPECT_TRUE(stage.asked());
    EXPECT_EQ(*stage.state->screen, AppState::Screen::pick);
}

TEST(GmailAsk, DoesNotComeWithoutAMailboxToSort) {
    GmailStage stage;
    stage.state->folder.set(std::nullopt);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !stage.find(QStringLiteral("sort"))->isEnabled(); }));
    stage.model().pick()->sort();
    EXPECT_FALSE(stage.asked());
    EXPECT_FALSE(*stage.state->running);
}

TEST(GmailAsk, SortsAtOnceWhatIsNotGmails) {
    Stage stage(scenes::chosenMailbox);
    ASSERT_TRUE(stage.click("sort"));
    EXPECT_TRUE(*stage.state->running);
    EXPECT_FALSE(stage.state->askingGmail->has_value());
}

TEST(GmailAsk, DeclinedTheScanGoesOn) {
    GmailStage stage;
    ASSERT_TRUE(stage.click("sort"));
    ASSERT_TRUE(stage.click("declineGmail"));
    EXPECT_FALSE(stage.asked());
    EXPECT_FALSE(stage.stands("gmailAsk"));
    EXPECT_TRUE(*stage.state->running);
    EXPECT_EQ(*stage.state->screen, AppState::Screen::scanning);
}

TEST(GmailAsk, TheFirstPressOnlyOpensThePanel) {
    GmailStage stage;
    stage.openSheet();
    ASSERT_TRUE(stage.click("allowGmail"));
    EXPECT_TRUE(stage.stands("passwordPanel"));
    EXPECT_EQ(stage.text("allowGmail"), "Check and save");
    EXPECT_FALSE(stage.canPress());
    EXPECT_TRUE(stage.world.tls.made().empty());
    ASSERT_TRUE(stage.click("openAppPasswords"));
    EXPECT_EQ(stage.world.desktop.opened,
              std::vector<std::string>{"https://myaccount.google.com/apppasswords"});
}

TEST(GmailAsk, WantsSixteenCharactersAndCountsBlanks) {
    const struct {
        const char* typed;
        bool enough;
    } rows[] = {
        {"", false},
        {"abcdefghijklmno", false},
        {"abcdefghijklmnop", true},
        {"abcd efgh ijkl m", true},
        {"                ", true},
        {"abcd efgh ijkl mnop", true},
        // Sixteen bytes and more, but fifteen characters.
        {"ábcdefghijklmno", false},
        {"e\u0301bcdefghijklmno", false},
        {"e\u0301bcdefghijklmnop", true},
    };
    GmailStage stage;
    stage.openPanel();
    for (const auto& row : rows) {
        stage.paste(QString::fromUtf8(row.typed));
        EXPECT_EQ(stage.canPress(), row.enough) << row.typed;
    }
}

TEST(GmailAsk, AGoodPasswordIsKeptAndTheSheetGoesOnceThatCouldBeRead) {
    GmailStage stage;
    stage.accept();
    stage.openPanel();
    stage.paste(GmailStage::password);
    ASSERT_TRUE(stage.click("allowGmail"));
    stage.finishTest(connected);
    EXPECT_EQ(stage.kept(), "abcdefghijklmnop") << "without the blanks";
    EXPECT_EQ(stage.text("gmailStatus"), connected);
    EXPECT_EQ(stage.model().gmailAsk()->statusTone(), screens::tones::Green);
    EXPECT_EQ(stage.text("appPassword"), "") << "nothing is left of it in the window";
    EXPECT_FALSE(stage.canPress());
    EXPECT_TRUE(stage.asked());
    stage.world.clock.waitForSleeps(1);
    EXPECT_EQ(stage.world.clock.sleeps().back(), 0.7);
    stage.finishTask();
    EXPECT_FALSE(stage.stands("gmailAsk"));
    EXPECT_EQ(*stage.state->gmailConnected, std::set<std::string>{GmailStage::address});
    EXPECT_EQ(stage.world.tls.strayed(), "");
    EXPECT_EQ(stage.text("gmailTitle"), "Gmail connected - moves are instant and silent");
}

TEST(GmailAsk, AWrongPasswordSaysSoAndMayBeTriedAgain) {
    GmailStage stage;
    stage.refuse("ponmlkjihgfedcba");
    stage.openPanel();
    stage.paste("ponmlkjihgfedcba");
    ASSERT_TRUE(stage.click("allowGmail"));
    EXPECT_EQ(stage.text("allowGmail"), "Checking…");
    EXPECT_FALSE(stage.canPress());
    stage.finishTest(refused);
    EXPECT_EQ(stage.text("gmailStatus"), refused);
    EXPECT_EQ(stage.model().gmailAsk()->statusTone(), screens::tones::Orange);
    EXPECT_EQ(stage.text("allowGmail"), "Check and save");
    EXPECT_TRUE(stage.canPress());
    EXPECT_TRUE(stage.asked());
    EXPECT_FALSE(stage.kept());
    EXPECT_TRUE(stage.world.clock.sleeps().empty());

    stage.accept();
    stage.find("appPassword")->forceActiveFocus();
    stage.paste("abcdefghijklmnop");  // which looks no different
    ASSERT_TRUE(stage.click("allowGmail"));
    EXPECT_EQ(stage.model().gmailAsk()->status(), "") << "the old word is gone at once";
    stage.finishTest(connected);
    stage.finishTask();
    EXPECT_FALSE(stage.asked());
    EXPECT_EQ(stage.kept(), "abcdefghijklmnop");
    EXPECT_EQ(stage.world.tls.strayed(), "");
}

TEST(GmailAsk, WithoutANetworkSaysWhy) {
    GmailStage stage;
    stage.world.tls.add(doubles::Transcript().fails("Network is unreachable"));
    stage.openPanel();
    stage.paste(GmailStage::password);
    ASSERT_TRUE(stage.click("allowGmail"));
    stage.finishTest("Couldn't reach Gmail: Network is unreachable");
    EXPECT_FALSE(stage.kept());
}

TEST(GmailAsk, NotNowDuringATestEndsTheSheetAndAGoodPasswordIsKeptAllTheSame) {
    GmailStage stage;
    stage.world.mainQueue.pump();
    stage.accept();
    stage.openPanel();
    stage.paste(GmailStage::password);
    ASSERT_TRUE(stage.click("allowGmail"));
    // Its result is on the way, and nobody has heard of it yet.
    ASSERT_TRUE(stage.click("declineGmail"));
    EXPECT_FALSE(stage.asked());
    EXPECT_FALSE(stage.stands("gmailAsk"));
    stage.finishTask();
    EXPECT_EQ(stage.kept(), "abcdefghijklmnop");
    EXPECT_FALSE(stage.stands("gmailAsk"));
    EXPECT_EQ(stage.model().gmailAsk()->status(), "");
    EXPECT_TRUE(stage.state->gmailConnected->contains(GmailStage::address))
        << "so that it can be disconnected";
    EXPECT_FALSE(*stage.state->running);
}

TEST(GmailAsk, ATestThatFailsAfterNotNowChangesNothing) {
    GmailStage stage;
    stage.refuse("abcdefghijklmnop");
    stage.openPanel();
    stage.paste(GmailStage::password);
    ASSERT_TRUE(stage.click("allowGmail"));
    ASSERT_TRUE(stage.click("declineGmail"));
    stage.openSheet();
    stage.finishTask();
    EXPECT_EQ(stage.model().gmailAsk()->status(), "") << "it belongs to the sheet before";
    EXPECT_FALSE(stage.kept());
    EXPECT_TRUE(stage.state->gmailConnected->empty());
    EXPECT_TRUE(stage.asked());
}

TEST(GmailAsk, AnotherSheetOutlastsTheTestOfTheOneBefore) {
    GmailStage stage;
    stage.accept();
    stage.openPanel();
    stage.paste(GmailStage::password);
    ASSERT_TRUE(stage.click("allowGmail"));
    ASSERT_TRUE(stage.click("declineGmail"));
    stage.state->askThen = AppState::GmailThen::scan;
    stage.state->askingGmail.set(*stage.state->account);
    stage.settle();
    stage.finishTask();
    EXPECT_TRUE(stage.asked());
    EXPECT_FALSE(*stage.state->running) << "what this sheet was asked for waits for its answer";
}

TEST(GmailAsk, OpensEmptyEachTime) {
    GmailStage stage;
    stage.openPanel();
    stage.paste(GmailStage::password);
    EXPECT_TRUE(stage.canPress());
    ASSERT_TRUE(stage.click("declineGmail"));
    stage.openSheet();
    EXPECT_FALSE(stage.stands("passwordPanel"));
    EXPECT_EQ(stage.text("allowGmail"), "Allow");
    ASSERT_TRUE(stage.click("allowGmail"));
    EXPECT_EQ(stage.text("appPassword"), "");
    EXPECT_FALSE(stage.canPress());
}

TEST(GmailAsk, ThePanelIsInSightHoweverSmallTheWindow) {
    for (const int height : {740, 640}) {
        SCOPED_TRACE(height);
        GmailStage stage;
        stage.window()->resize(980, height);
        stage.world.tls.add(doubles::Transcript().fails("Network is unreachable"));
        stage.openPanel();
        stage.paste(GmailStage::password);
        ASSERT_TRUE(stage.click("allowGmail"));
        stage.finishTest("Couldn't reach Gmail: Network is unreachable");
        (void)stage.window()->grabWindow();
        stage.settle();
        const auto bottom = [&](const char* name) {
            const auto* item = stage.find(QLatin1String(name));
            return item->mapToScene(QPointF(0, item->height())).y();
        };
        const auto* answer = stage.find("allowGmail");
        const double answers = answer->mapToScene(QPointF(0, 0)).y();
        EXPECT_LT(bottom("gmailStatus"), answers);
        EXPECT_LT(answers - bottom("passwordPanel"), 60) << "nothing empty below it";
        EXPECT_LT(bottom("allowGmail"), height);
    }
}

TEST(GmailAsk, TheWindowStaysAliveDuringATest) {
    GmailStage stage;
    stage.hang();
    stage.openPanel();
    stage.paste(GmailStage::password);
    ASSERT_TRUE(stage.click("allowGmail"));
    stage.world.tls.waitForBlock();
    stage.settle();
    const QSignalSpy frames(stage.window(), &QQuickWindow::frameSwapped);
    EXPECT_TRUE(QTest::qWaitFor([&] { return frames.count() > 5; })) << "the spinner turns";
    EXPECT_EQ(stage.text("allowGmail"), "Checking…");
    stage.find("appPassword")->forceActiveFocus();
    stage.type("q");
    EXPECT_EQ(stage.find("appPassword")->property("length"), 20);
    stage.press(Qt::Key_Return);
    EXPECT_EQ(stage.world.tls.made().size(), 1U) << "no second test begins";
    ASSERT_TRUE(stage.click("declineGmail"));
    EXPECT_FALSE(stage.stands("gmailAsk"));
}

}  // namespace
}  // namespace brindlet::testing
