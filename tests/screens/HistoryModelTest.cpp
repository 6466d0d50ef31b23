#include "screens/history/HistoryModel.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QCoreApplication>
#include <QSignalSpy>

#include "base/Files.h"
#include "screens/Stage.h"

namespace brindlet::testing {
namespace {

using screens::BinModel;
using screens::HistoryModel;
using screens::MovedModel;
using screens::ScansModel;
using FailureMode = QAbstractItemModelTester::FailureReportingMode;

/// The history without a window.
struct Past {
    explicit Past(void (*scene)(AppState&) = scenes::history) {
        scene(*state);
        model.refresh();
    }
    ~Past() { world.retire(); }

    QVariant scan(int row, ScansModel::Role role) { return model.scans()->index(row).data(role); }
    QVariant binned(int row, BinModel::Role role) { return model.bin()->index(row).data(role); }
    MovedModel* moved(int row) { return scan(row, ScansModel::MessagesRole).value<MovedModel*>(); }
    bool isOpen(int row) { return scan(row, ScansModel::ExpandedRole).toBool(); }
    const std::vector<ScanRecord>& records() { return *state->history.records; }
    const std::vector<ScanRecord>& bin() { return *state->history.deleted; }

    doubles::World& world = doubles::World::lasting();
    std::shared_ptr<AppState> state = AppState::make(world.services(), 1);
    HistoryModel model{*state};
    QAbstractItemModelTester scansTester{model.scans(), FailureMode::Fatal};
    QAbstractItemModelTester binTester{model.bin(), FailureMode::Fatal};
};

TEST(HistoryModel, ListsScansNewestFirstAndClosed) {
    Past past;
    ASSERT_EQ(past.model.scans()->rowCount(), 4);
    EXPECT_EQ(past.model.count(), QStringLiteral("4 scans · 4 messages moved in total"));
    EXPECT_EQ(past.scan(0, ScansModel::DateRole), QStringLiteral("2023-11-14 19:49"));
    EXPECT_EQ(past.scan(0, ScansModel::PlaceRole), QStringLiteral("INBOX - ada@example.org"));
    EXPECT_EQ(past.scan(1, ScansModel::MovedRole), QString());
    EXPECT_EQ(past.scan(2, ScansModel::PlaceRole), QStringLiteral("דואר נכנס - ada@example.org"));
    for (int row = 0; row < 4; ++row) {
        EXPECT_FALSE(past.isOpen(row));
        EXPECT_EQ(past.moved(row), nullptr);
    }
}

TEST(HistoryModel, ARowTellsAReaderWhetherItIsOpen) {
    Past past;
    EXPECT_EQ(past.scan(0, ScansModel::DescriptionRole),
              QStringLiteral("1,834 sorted, 3 moved, Collapsed"));
    past.model.setOpen(0, true);
    EXPECT_EQ(past.scan(0, ScansModel::DescriptionRole),
              QStringLiteral("1,834 sorted, 3 moved, Expanded"));
}

TEST(HistoryModel, AnOpenRowListsWhatWasMoved) {
    Past past;
    past.model.setOpen(0, true);
    past.model.setOpen(1, true);
    EXPECT_TRUE(past.isOpen(0)) << "one open row does not close another";
    EXPECT_EQ(past.scan(0, ScansModel::JunkRole), QStringLiteral("212 junk of 1,834"));
    EXPECT_EQ(past.scan(0, ScansModel::MovedIntoRole), QStringLiteral("moved into Brindlet Junk"));
    EXPECT_EQ(past.scan(0, ScansModel::MovedTitleRole), QStringLiteral("3 MOVED"));
    auto* moved = past.moved(0);
    ASSERT_NE(moved, nullptr);
    const QAbstractItemModelTester tester(moved, FailureMode::Fatal);
    ASSERT_EQ(moved->rowCount(), 3);
    EXPECT_EQ(moved->index(0).data(MovedModel::SubjectRole),
              QStringLiteral("New arrivals picked for you, number 0"));
    EXPECT_EQ(moved->index(0).data(MovedModel::SenderRole),
              QStringLiteral("Quill & Thread <hello0@quill.example>"));
    EXPECT_EQ(moved->index(1).data(MovedModel::SubjectRole), QStringLiteral("(no subject)"));
    EXPECT_EQ(past.scan(1, ScansModel::MovedTitleRole), QString());
    EXPECT_EQ(past.moved(1)->rowCount(), 0);
}

TEST(HistoryModel, AnOpenRowFollowsAMoveOutOfItsScan) {
    Past past;
    past.model.setOpen(0, true);
    auto* moved = past.moved(0);
    const QSignalSpy resets(moved, &QAbstractItemModel::modelReset);
    past.model.refresh();
    EXPECT_EQ(resets.count(), 0) << "nothing else was moved";
    past.state->history.setMoved("INBOX", "Old mail", {{"new@x.example", "Ann", "Late"}});
    past.model.refresh();
    EXPECT_EQ(resets.count(), 1);
    EXPECT_EQ(past.moved(0), moved);
    EXPECT_EQ(moved->rowCount(), 4);
    EXPECT_EQ(past.scan(0, ScansModel::MovedIntoRole), QStringLiteral("moved into Old mail"));
}

TEST(HistoryModel, ClosingLetsGoOfTheMessages) {
    Past past;
    past.model.setOpen(0, true);
    const QPointer<MovedModel> moved = past.moved(0);
    past.model.setOpen(0, false);
    EXPECT_FALSE(past.isOpen(0));
    EXPECT_EQ(past.moved(0), nullptr);
    EXPECT_FALSE(moved.isNull()) << "a view may still draw it";
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(moved.isNull());
}

TEST(HistoryModel, RowsThatAreNotThereDoNothing) {
    Past past;
    for (const int row : {-1, 4, 99}) {
        past.model.setOpen(row, true);
        past.model.putOnScreen(row);
        past.model.deleteScan(row);
        past.model.putBack(row);
        past.model.purge(row);
        past.model.purge(row);
    }
    EXPECT_EQ(past.records().size(), 4U);
    EXPECT_EQ(past.bin().size(), 2U);
    EXPECT_EQ(*past.state->screen, AppState::Screen::history);
}

TEST(HistoryModel, DeletingTakesOneRowOutAndPutsItInTheBin) {
    Past past;
    past.model.setOpen(2, true);
    const QSignalSpy resets(past.model.scans(), &QAbstractItemModel::modelReset);
    const QSignalSpy gone(past.model.scans(), &QAbstractItemModel::rowsRemoved);
    const QSignalSpy came(past.model.bin(), &QAbstractItemModel::rowsInserted);
    past.model.deleteScan(1);
    past.model.refresh();
    ASSERT_EQ(past.model.scans()->rowCount(), 3);
    EXPECT_TRUE(past.isOpen(1)) << "who was below stays open";
    EXPECT_EQ(past.binned(0, BinModel::PlaceRole), QStringLiteral("Receipts - ada@example.org"));
    EXPECT_EQ(past.binned(0, BinModel::LineRole), QStringLiteral("1,834 sorted - 30 days left"));
    EXPECT_EQ(resets.count(), 0);
    EXPECT_EQ(gone.count(), 1);
    EXPECT_EQ(came.count(), 1);
}

TEST(HistoryModel, ARowThatHasGoneSinceTheRefreshIsNotMistakenForAnother) {
    Past past;
    past.state->history.deleteRecord(past.records()[0]);
    past.model.deleteScan(0);
    EXPECT_EQ(past.records().size(), 3U) << "the row still shows what has gone already";
    past.model.refresh();
    past.model.deleteScan(0);
    EXPECT_EQ(past.records().size(), 2U);
}

TEST(HistoryModel, WhatIsPutBackStandsInItsPlaceAndIsClosed) {
    Past past;
    past.model.setOpen(1, true);
    past.model.deleteScan(1);
    past.model.refresh();
    past.model.putBack(0);
    past.model.refresh();
    ASSERT_EQ(past.model.scans()->rowCount(), 4);
    EXPECT_EQ(past.scan(1, ScansModel::PlaceRole), QStringLiteral("Receipts - ada@example.org"));
    EXPECT_FALSE(past.isOpen(1));
    EXPECT_EQ(past.model.bin()->rowCount(), 2);
}

TEST(HistoryModel, TheBinWordsOneDayInTheSingular) {
    Past past;
    EXPECT_EQ(past.binned(0, BinModel::LineRole),
              QStringLiteral("1,834 sorted · 5 moved - 30 days left"));
    EXPECT_EQ(past.binned(1, BinModel::LineRole),
              QStringLiteral("1,834 sorted · 5 moved - 1 day left"));
    past.world.clock.advance(86400);
    past.model.refresh();
    EXPECT_EQ(past.binned(0, BinModel::LineRole),
              QStringLiteral("1,834 sorted · 5 moved - 29 days left"));
}

TEST(HistoryModel, PurgingTakesTwoPressesOnTheSameRow) {
    Past past;
    past.model.purge(0);
    EXPECT_EQ(past.binned(0, BinModel::PurgeLabelRole), QStringLiteral("Really?"));
    EXPECT_TRUE(past.binned(0, BinModel::AskedRole).toBool());
    past.model.purge(1);
    EXPECT_EQ(past.binned(1, BinModel::PurgeLabelRole), QStringLiteral("Really?"));
    EXPECT_EQ(past.bin().size(), 2U);
    past.model.purge(0);
    past.model.refresh();
    ASSERT_EQ(past.bin().size(), 1U);
    EXPECT_EQ(past.bin()[0].folder, "Junk");
    EXPECT_TRUE(past.binned(0, BinModel::AskedRole).toBool());
}

TEST(HistoryModel, WhatComesToTheBinAgainIsAskedAnew) {
    Past past;
    past.model.purge(0);
    past.model.putBack(0);
    past.model.refresh();
    past.model.deleteScan(4);
    past.model.refresh();
    ASSERT_EQ(past.binned(0, BinModel::PlaceRole), QStringLiteral("Archive - ada@example.org"));
    EXPECT_EQ(past.binned(0, BinModel::PurgeLabelRole), QStringLiteral("Delete"));
}

TEST(HistoryModel, EmptyingTheBinTakesTwoPresses) {
    Past past;
    const QSignalSpy changes(&past.model, &HistoryModel::emptyAskedChanged);
    EXPECT_EQ(past.model.emptyLabel(), QStringLiteral("Empty"));
    past.model.emptyBin();
    EXPECT_EQ(past.model.emptyLabel(), QStringLiteral("Really delete all?"));
    EXPECT_TRUE(past.model.emptyAsked());
    EXPECT_EQ(past.bin().size(), 2U);
    past.model.refresh();
    past.model.emptyBin();
    past.model.refresh();
    EXPECT_EQ(past.bin().size(), 0U);
    EXPECT_EQ(past.model.bin()->rowCount(), 0);
    EXPECT_EQ(past.model.emptyLabel(), QStringLiteral("Empty"));
    EXPECT_EQ(changes.count(), 2);
}

TEST(HistoryModel, ABinThatGotEmptyOtherwiseAsksAnew) {
    Past past;
    past.model.emptyBin();
    past.model.putBack(0);
    past.model.refresh();
    EXPECT_TRUE(past.model.emptyAsked()) << "one is left to be asked about";
    past.model.putBack(0);
    past.model.refresh();
    EXPECT_FALSE(past.model.emptyAsked());
}

TEST(HistoryModel, LeavingFallsBackToTheFirstStepsAndClosesAll) {
    Past past;
    past.model.setOpen(0, true);
    past.model.purge(0);
    past.model.emptyBin();
    past.model.leave();
    past.model.refresh();
    EXPECT_FALSE(past.isOpen(0));
    EXPECT_EQ(past.binned(0, BinModel::PurgeLabelRole), QStringLiteral("Delete"));
    EXPECT_FALSE(past.model.emptyAsked());
    past.model.purge(0);
    past.model.emptyBin();
    EXPECT_EQ(past.bin().size(), 2U) << "asked anew";
}

TEST(HistoryModel, MarkedRulesAreForgottenWhenTheViewIsLeft) {
    Past past(scenes::taughtHistory);
    auto& rules = *past.model.rules();
    const QAbstractItemModelTester tester(&rules, FailureMode::Fatal);
    ASSERT_EQ(rules.rowCount(), 4) << "those of the session are not among them";
    const auto kept = past.state->rules.all->at(0);
    rules.toggleMark(0);
    rules.toggleMark(1);
    rules.toggleMark(0);
    past.model.refresh();
    EXPECT_EQ(past.state->rules.all->size(), 4U);
    past.model.leave();
    ASSERT_EQ(past.state->rules.all->size(), 3U);
    EXPECT_EQ(past.state->rules.all->at(0), kept);
    past.model.leave();
    EXPECT_EQ(past.state->rules.all->size(), 3U) << "the marks went with the view";
}

TEST(HistoryModel, AScanWhoseFileIsGoneCannotBePutOnScreen) {
    Past past;
    past.model.setOpen(0, true);
    past.model.setOpen(1, true);
    EXPECT_TRUE(past.scan(0, ScansModel::FileStandsRole).toBool());
    EXPECT_FALSE(past.scan(1, ScansModel::FileStandsRole).toBool());
    past.model.putOnScreen(1);
    EXPECT_EQ(*past.state->screen, AppState::Screen::history);
}

/// The only scan file of the scene.
std::string scanFile(Past& past) {
    const auto folder = past.world.directories.store() + "/scans";
    return folder + "/" + files::list(folder).value().at(0);
}

TEST(HistoryModel, AFileThatGoesWhileTheRowIsOpenTurnsTheButtonOff) {
    Past past;
    past.model.setOpen(0, true);
    files::remove(scanFile(past));
    past.model.putOnScreen(0);
    EXPECT_EQ(*past.state->screen, AppState::Screen::history);
    EXPECT_FALSE(past.scan(0, ScansModel::FileStandsRole).toBool());
}

TEST(HistoryModel, ADamagedFileOpensNothing) {
    Past past;
    past.model.setOpen(0, true);
    files::write(scanFile(past), "{");
    past.model.putOnScreen(0);
    EXPECT_EQ(*past.state->screen, AppState::Screen::history);
}

TEST(HistoryModel, PuttingAScanOnScreenShowsItsResults) {
    Past past;
    past.model.setOpen(0, true);
    past.model.putOnScreen(0);
    EXPECT_EQ(*past.state->screen, AppState::Screen::results);
}

TEST(HistoryModel, ForgettingEmptiesTheSeenListAtOnce) {
    Past past;
    EXPECT_EQ(past.model.forgetLabel(), QStringLiteral("Forget 2 sorted messages"));
    past.model.forgetSorted();
    past.model.refresh();
    EXPECT_EQ(past.state->seen.size(), 0U);
    EXPECT_EQ(past.model.forgetLabel(), QString());
}

TEST(HistoryModel, AnEmptyHistorySaysSo) {
    Past past(scenes::emptyHistory);
    EXPECT_EQ(past.model.nothing(), QStringLiteral("Nothing sorted yet."));
    EXPECT_EQ(past.model.count(), QString());
    EXPECT_EQ(past.model.scans()->rowCount() + past.model.bin()->rowCount(), 0);
}

TEST(HistoryModel, ARefreshOfTheSameTellsNobody) {
    Past past;
    past.model.setOpen(0, true);
    const QSignalSpy words(&past.model, &HistoryModel::wordsChanged);
    const QSignalSpy rows(past.model.scans(), &QAbstractItemModel::dataChanged);
    const QSignalSpy bin(past.model.bin(), &QAbstractItemModel::dataChanged);
    past.state->done.set(7);
    past.model.refresh();
    EXPECT_EQ(words.count() + rows.count() + bin.count(), 0);
}

TEST(HistoryModel, AHundredScansOfTwentyThousandMovedMessagesAreShown) {
    Past past([](AppState& state) {
        std::vector<ScanRecord> records;
        for (int i = 0; i < 100; ++i) records.push_back(scanRecord(state, i, "INBOX", 20'000));
        state.history.records.set(std::move(records));
    });
    EXPECT_EQ(past.model.count(), QStringLiteral("100 scans · 2,000,000 messages moved in total"));
    past.model.setOpen(99, true);
    EXPECT_EQ(past.moved(99)->rowCount(), 20'000);
    past.state->history.add(scanRecord(*past.state, -1, "INBOX"));
    past.model.refresh();
    EXPECT_EQ(past.model.scans()->rowCount(), 100) << "the oldest made room";
    EXPECT_EQ(past.moved(99), nullptr);
}

TEST(HistoryModel, RecordsOfOneIdFromADamagedFileDoNoHarm) {
    Past past;
    past.state->history.records.mutate([](auto& records) { records.push_back(records.front()); });
    past.model.refresh();
    EXPECT_EQ(past.model.scans()->rowCount(), 5);
    past.model.setOpen(4, true);
    past.model.deleteScan(4);
    past.model.refresh();
    EXPECT_EQ(past.model.scans()->rowCount(), 4);
}

}  // namespace
}  // namespace brindlet::testing
