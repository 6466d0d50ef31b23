#include <gtest/gtest.h>

#include <QTest>

#include "screens/GmailStage.h"

namespace brindlet::testing {
namespace {

/// Names that strain a layout: long ones, from right to left, of many lines or of no letters.
std::string oddName(int number) {
    const std::string names[] = {
        std::string(200, 'W'),
        "דואר נכנס שכבר מויין לפני זמן רב מאוד ולא נקרא אף פעם על ידי אף אחד בעולם כולו",
        "📬📮📭 🧾👩‍👩‍👧‍👦🏳️‍🌈",
        "Projects/Harbour House/2019/Letters to and from the architects, with all their drawings",
        "a\nb\tc",
        "ﷺ مرحبا Inbox שלום",
        " ",
        "i",
    };
    return names[number % 8] + (number < 8 ? "" : " " + std::to_string(number));
}

/// Forty accounts, the first with three hundred folders.
void crowd(AppState& state) {
    std::vector<MailAccount> accounts;
    for (int i = 0; i < 40; ++i)
        accounts.push_back(account(oddName(i) + "@example.org", {folder(1, "INBOX", 1834)}));
    constexpr auto roles = allCases<MailFolder::Role>();
    for (int i = 0; i < 300; ++i)
        accounts[0].folders.push_back({i + 2, oddName(i), (i + 1) * 1'000'003 % 4'000'000,
                                       roles[static_cast<std::size_t>(i) % roles.size()]});
    state.accounts.set(accounts);
    state.selectAccount(accounts[0]);
    state.folder.set(accounts[0].folders[1]);
    state.folderVanished.set(oddName(0));
    state.inReach.set(12'345'678);
    state.navigate(AppState::Screen::pick);
}

QRectF placeOf(const QQuickItem* item) {
    return item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
}

/// Until what came and went has its place.
void layOut(const Stage& stage) {
    for (int frames = 0; frames < 3; ++frames) {
        (void)stage.window()->grabWindow();
        stage.settle();
    }
}

void gatherWords(QQuickItem* item, std::vector<QQuickItem*>& words) {
    if (!item->isVisible()) return;
    if (item->inherits("QQuickText") && !item->property("text").toString().isEmpty())
        words.push_back(item);
    for (auto* child : item->childItems()) gatherWords(child, words);
}

/// Words that end in the window, and no wider than their place.
void expectFitting(const Stage& stage) {
    std::vector<QQuickItem*> words;
    gatherWords(stage.window()->contentItem(), words);
    for (const auto* word : words) {
        SCOPED_TRACE(word->property("text").toString().toStdString());
        EXPECT_GE(placeOf(word).left(), 0);
        EXPECT_LE(placeOf(word).right(), stage.window()->width());
        EXPECT_LE(word->property("contentWidth").toDouble(), word->width() + 1);
    }
}

/// Rows whose words stay inside them and do not touch.
void expectTidyRows(const Stage& stage) {
    auto* const list = stage.find(QStringLiteral("folders"));
    int rows = 0;
    for (auto* row : list->property("contentItem").value<QQuickItem*>()->childItems()) {
        if (!row->isVisible() || !row->property("statusTag").isValid()) continue;
        ++rows;
        SCOPED_TRACE(row->property("name").toString().toStdString());
        std::vector<QQuickItem*> words;
        gatherWords(row, words);
        for (std::size_t i = 0; i < words.size(); ++i) {
            const auto place = placeOf(words[i]).adjusted(1, 1, -1, -1);
            EXPECT_TRUE(placeOf(row).contains(place));
            for (std::size_t j = i + 1; j < words.size(); ++j)
                EXPECT_FALSE(place.intersects(placeOf(words[j])));
        }
    }
    EXPECT_GT(rows, 2);
}

TEST(CrowdedPick, KeepsItsLayoutInAnyWindow) {
    Stage stage(crowd);
    for (const QSize size : {QSize(980, 640), QSize(1080, 740), QSize(1920, 1200)}) {
        SCOPED_TRACE(size.width());
        stage.window()->resize(size);
        auto* list = stage.await(QStringLiteral("folders"));
        for (const int row : {0, 8, 150, 300}) {
            QMetaObject::invokeMethod(list, "positionViewAtIndex", Q_ARG(int, row), Q_ARG(int, 0));
            layOut(stage);
            expectFitting(stage);
            expectTidyRows(stage);
        }
    }
    EXPECT_EQ(stage.main->warnings(), QStringList());
}

TEST(CrowdedPick, TheMenuOfAccountsScrollsInsideTheSmallestWindow) {
    Stage stage(crowd);
    stage.window()->resize(stage.window()->minimumSize());
    layOut(stage);
    ASSERT_TRUE(stage.tabTo(QStringLiteral("accounts")));
    stage.press(Qt::Key_Space);
    for (int i = 0; i < 39; ++i) stage.press(Qt::Key_Down);
    layOut(stage);
    const auto* popup = stage.find(QStringLiteral("accounts"))->property("popup").value<QObject*>();
    const auto* rows = popup->property("contentItem").value<QQuickItem*>();
    EXPECT_LE(placeOf(rows).bottom(), stage.window()->height());
    stage.press(Qt::Key_Return);
    EXPECT_EQ(stage.state->account->value().address, oddName(39) + "@example.org");
}

TEST(CrowdedPick, TheRoundButtonIsReachedByKeyInTheSmallestWindow) {
    Stage stage(crowd);
    stage.window()->resize(stage.window()->minimumSize());
    layOut(stage);
    ASSERT_TRUE(stage.tabTo(QStringLiteral("sort")));
    layOut(stage);
    EXPECT_LE(placeOf(stage.find(QStringLiteral("sort"))).bottom(), stage.window()->height());
}

TEST(CrowdedPick, ALongNameIsReadInFullByThePointer) {
    Stage stage(crowd);
    layOut(stage);
    QQuickItem* row = nullptr;
    QMetaObject::invokeMethod(stage.find(QStringLiteral("folders")), "itemAtIndex",
                              Q_RETURN_ARG(QQuickItem*, row), Q_ARG(int, 1));
    ASSERT_NE(row, nullptr);
    QTest::mouseMove(stage.window(), placeOf(row).center().toPoint());
    ASSERT_TRUE(QTest::qWaitFor([&] { return stage.find(QStringLiteral("helpTip")); }));
    EXPECT_EQ(stage.find(QStringLiteral("helpTip"))->property("text").toString().toStdString(),
              oddName(0));
}

TEST(CrowdedPick, WhatTheKeyboardComesToStaysInSightWhenSomethingOpensAboveAtThatMoment) {
    GmailStage stage;
    stage.window()->resize(stage.window()->minimumSize());
    layOut(stage);
    stage.press(Qt::Key_Tab);
    auto* sort = stage.find(QStringLiteral("sort"));
    stage.model().pick()->gmail()->toggle();
    sort->forceActiveFocus(Qt::TabFocusReason);
    layOut(stage);
    EXPECT_LE(placeOf(sort).bottom(), stage.window()->height());
}

TEST(CrowdedPick, APageThatIsScrolledAwayFromTheKeyboardStaysThere) {
    GmailStage stage;
    stage.window()->resize(stage.window()->minimumSize());
    ASSERT_TRUE(stage.click(QStringLiteral("gmailDisclosure")));
    layOut(stage);
    ASSERT_TRUE(stage.tabTo(QStringLiteral("sort")));
    layOut(stage);
    auto* page = stage.find(QStringLiteral("pickPage"));
    ASSERT_GT(page->property("contentY").toDouble(), 0);
    page->setProperty("contentY", 0);
    layOut(stage);
    EXPECT_EQ(page->property("contentY").toDouble(), 0);
}

}  // namespace
}  // namespace brindlet::testing
