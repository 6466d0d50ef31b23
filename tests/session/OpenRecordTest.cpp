#include <gtest/gtest.h>

#include "base/Files.h"
#include "session/ReviewFixture.h"

namespace brindlet {
namespace {

using Role = MailFolder::Role;
using Ids = AppState::Ids;
using Screen = AppState::Screen;

/// Past scans, put back on screen.
class OpenRecord : public ReviewTest {
  protected:
    OpenRecord() {
        record.started = Date::fromUnix(1'699'000'000);
        record.account = "11111111";
        record.folder = "INBOX";
    }
    void save(const std::vector<std::optional<bool>>& approved) {
        std::vector<ScanRecord::Saved> saved;
        for (std::size_t i = 0; i < list.size(); ++i)
            saved.push_back(savedFrom(list[i], approved[i]));
        state->history.writeScan(saved, record.started);
    }
    void saveUnstamped() { save(std::vector<std::optional<bool>>(list.size())); }
    std::string path() const { return world.directories.store() + "/scans/1699000000.json"; }

    ScanRecord record;
};

TEST_F(OpenRecord, ShowsTheScanWithItsTicks) {
    addVerdicts(4, "a@x.example", "News");
    list[2].messageID.reset();
    addVerdict("b@x.example", "A bill", Category::billOrPayment).vetoed = true;
    save({true, false, true, std::nullopt, std::nullopt});
    state->openRecord(record);
    EXPECT_EQ(std::vector<Verdict>(state->verdicts->begin(), state->verdicts->end()), list);
    EXPECT_EQ(*state->approved, (Ids{1, 4})) << "where nothing is saved, as the scan proposes";
    EXPECT_EQ(state->currentRecord, record);
    EXPECT_EQ(*state->folder, (MailFolder{0, "INBOX", 5, Role::inbox}));
    EXPECT_EQ(*state->screen, Screen::results);
    EXPECT_EQ(*state->pastMove, std::nullopt);
    EXPECT_TRUE(state->movedAlready->empty());
    state->goBack();
    EXPECT_EQ(*state->screen, Screen::welcome);
}

TEST_F(OpenRecord, OfAJunkFolderProposesWhatIsGood) {
    record.folder = "Lists/Junk";
    addVerdict("a@x.example", "News");
    addVerdict("b@x.example", "A bill", Category::billOrPayment);
    saveUnstamped();
    state->openRecord(record);
    EXPECT_EQ((*state->folder)->role, Role::junk);
    EXPECT_EQ(*state->approved, Ids{2});
}

TEST_F(OpenRecord, LeavesWhatWasMovedUnticked) {
    addVerdicts(3, "a@x.example", "News");
    record.movedTo = "Brindlet Junk";
    record.moved = {{"2@example", "a@x.example", "News"}, {"elsewhere@example", "", ""}};
    save({true, true, std::nullopt});
    state->putBack.set({7});
    state->openRecord(record);
    EXPECT_EQ(*state->approved, (Ids{1, 3}));
    EXPECT_EQ(*state->movedAlready,
              (std::unordered_set<std::string>{"2@example", "elsewhere@example"}));
    EXPECT_EQ(state->movedVerdicts(), (std::vector<std::uint32_t>{1}));
    EXPECT_EQ(*state->pastMove, (AppState::PastMove{"INBOX", "Brindlet Junk"}));
    EXPECT_TRUE(state->putBack->empty());
}

TEST_F(OpenRecord, ClearsWhatBelongsToTheScanBefore) {
    addVerdicts(2, "a@x.example", "News");
    show();
    state->toggleMessage(1);
    state->moveNote.set("Moved 1");
    state->moveError.set("An error");
    state->movedCount.set(3);
    state->pastMove.set(AppState::PastMove{"a", "b"});
    saveUnstamped();
    state->openRecord(record);
    EXPECT_EQ(*state->learned, 0);
    EXPECT_EQ(*state->moveNote, "");
    EXPECT_EQ(*state->moveError, std::nullopt);
    EXPECT_EQ(*state->movedCount, 0);
    EXPECT_EQ(*state->pending, std::nullopt);
    EXPECT_EQ(*state->pastMove, std::nullopt);
    EXPECT_TRUE(state->families.empty());
}

TEST_F(OpenRecord, LeavesTheErrorOfAFailedScanAndOtherCounts) {
    addVerdict("a@x.example", "News");
    saveUnstamped();
    state->scanError.set("stopped");
    state->moveTotal.set(5);
    state->skipped.set(6);
    state->correspondentCount.set(7);
    state->lastSweep.set(Sweep{"ticked 1", {1}, {}, std::nullopt});
    state->openRecord(record);
    EXPECT_EQ(*state->scanError, "stopped");
    EXPECT_EQ(*state->moveTotal, 5);
    EXPECT_EQ(*state->skipped, 6);
    EXPECT_EQ(*state->correspondentCount, 7);
    EXPECT_TRUE(state->lastSweep->has_value());
}

TEST_F(OpenRecord, CannotTellACategoryThatItDoesNotKnow) {
    files::createDirectories(world.directories.store() + "/scans");
    files::write(path(), R"([{"n":1,"messageID":"m","sender":"s","subject":"t",
        "category":"fromTheFuture","isJunk":true,"vetoed":false}])");
    state->openRecord(record);
    ASSERT_EQ(state->verdicts->size(), 1u);
    EXPECT_EQ((*state->verdicts)[0].category, Category::cannotTell);
    EXPECT_EQ(*state->approved, Ids{1});
    EXPECT_FALSE((*state->verdicts)[0].byRule);
}

TEST_F(OpenRecord, WithoutAUsableFileChangesNothing) {
    const char* const damaged[] = {
        "",
        "[",
        "{}",
        "null",
        "[1]",
        "[{}]",
        "[null]",
        R"([{"n":1,"sender":"s","subject":"t","category":"c","isJunk":true}])",
        R"([{"n":"1","sender":"s","subject":"t","category":"c","isJunk":true,"vetoed":false}])",
        R"([{"n":1,"sender":"s","subject":"t","category":"c","isJunk":true,"vetoed":false}] x)",
        "[{\"n\":1,\"sender\":\"\xff\",\"subject\":\"t\",\"category\":\"c\",\"isJunk\":true,"
        "\"vetoed\":false}]",
    };
    addVerdicts(2, "a@x.example", "News");
    showRecorded();
    state->toggleMessage(1);
    const auto check = [&] {
        int told = 0;
        const auto watch = state->subscribe([&] { ++told; });
        state->openRecord(record);
        EXPECT_EQ(told, 0);
        EXPECT_NE(state->currentRecord, record);
        EXPECT_TRUE(state->pending->has_value());
        EXPECT_EQ(*state->screen, Screen::welcome);
    };
    check();
    for (const auto* text : damaged) {
        SCOPED_TRACE(text);
        files::write(path(), text);
        check();
    }
}

TEST_F(OpenRecord, OfAnEmptyScanShowsIt) {
    saveUnstamped();
    state->openRecord(record);
    EXPECT_EQ(*state->screen, Screen::results);
    EXPECT_TRUE(state->resultsEmpty());
    EXPECT_EQ((*state->folder)->count, 0);
}

TEST_F(OpenRecord, SelectsTheAccountWithTheLabel) {
    saveUnstamped();
    MailAccount first, second;
    first.id = "AAAAAAAA-1";
    first.address = "ann@x.example.org";
    second.id = "BBBBBBBB-2";
    second.address = "ann@x.example";
    state->accounts.set({first, second});
    state->account.set(first);
    record.account = "ann@x.example";
    state->openRecord(record);
    EXPECT_EQ((*state->account)->id, second.id);
    EXPECT_EQ(state->pendingAccountLabel, std::nullopt);
    EXPECT_FALSE(*state->loadingAccounts);
}

TEST_F(OpenRecord, OfAnotherAccountLoadsTheAccountsToFindIt) {
    saveUnstamped();
    MailAccount other;
    other.id = "AAAAAAAA-1";
    state->accounts.set({other});
    state->account.set(other);
    record.account = "11111111";
    addUnreadable("a@x.example", "so that the account has mail");
    state->openRecord(record);
    EXPECT_EQ((*state->account)->id, other.id);
    EXPECT_EQ(state->pendingAccountLabel, "11111111");
    EXPECT_TRUE(*state->loadingAccounts);
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return !*state->loadingAccounts; }));
    EXPECT_EQ((*state->account)->id, doubles::MailHome::account);
    EXPECT_EQ(state->pendingAccountLabel, std::nullopt);
}

TEST_F(OpenRecord, OfAnAccountThatIsGoneShowsItUnderTheOneThatWas) {
    addVerdict("a@x.example", "News");
    saveUnstamped();
    MailAccount selected;
    selected.id = "AAAAAAAA-1";
    state->accounts.set({selected});
    state->account.set(selected);
    record.account = "gone@x.example";
    state->openRecord(record);
    EXPECT_EQ(state->verdicts->size(), 1u);
    EXPECT_EQ(*state->screen, Screen::results);
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return !*state->loadingAccounts; }));
    EXPECT_EQ((*state->account)->id, selected.id);
    EXPECT_EQ(state->pendingAccountLabel, std::nullopt);
}

TEST_F(OpenRecord, LeavesItsAccountToALoadThatIsUnderWay) {
    saveUnstamped();
    addUnreadable("a@x.example", "so that the account has mail");
    state->loadAccounts(true);
    state->openRecord(record);
    EXPECT_EQ(state->pendingAccountLabel, "11111111");
    const auto loads = state->accounts.revision();
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return !*state->loadingAccounts; }));
    world.mainQueue.pump();
    EXPECT_EQ(state->accounts.revision(), loads + 1) << "one load, not two";
    EXPECT_EQ((*state->account)->id, doubles::MailHome::account);
}

TEST_F(OpenRecord, SeesWhatAScanThatHasJustEndedIsStillWriting) {
    const auto id = add("a@x.example", "Sale");
    answerBySubject({{"Sale", "advertisingOrPromotion"}});
    state->startScan(account(), inbox());
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return state->currentRecord.has_value(); }));
    state->openRecord(*state->currentRecord);
    EXPECT_EQ(state->verdicts->size(), 1u);
    EXPECT_EQ(*state->approved, Ids{id});
    EXPECT_EQ((*state->folder)->id, 0) << "it was opened";
    finishTask();
}

TEST_F(OpenRecord, SeesTicksThatWereStillToBeSaved) {
    addVerdicts(3, "a@x.example", "News");
    showRecorded();
    state->toggleMessage(2);
    state->openRecord(*state->currentRecord);
    EXPECT_EQ(*state->approved, (Ids{1, 3}));
    settle();
    EXPECT_EQ((*state->history.readScan(state->currentRecord->started))[1].approved, false);
}

TEST_F(OpenRecord, KeepsTicksOfTheScanBeforeThatWereStillToBeSaved) {
    addVerdicts(3, "a@x.example", "News");
    saveUnstamped();
    showRecorded();
    const auto before = state->currentRecord->started;
    state->toggleMessage(2);
    state->openRecord(record);
    state->toggleMessage(1);
    settle();
    EXPECT_EQ((*state->history.readScan(before))[1].approved, false);
    EXPECT_EQ((*state->history.readScan(before))[0].approved, true);
    EXPECT_EQ((*state->history.readScan(record.started))[0].approved, false);
}

TEST_F(OpenRecord, OpensTheVeryEntryOfTheHistory) {
    addVerdicts(2, "a@x.example", "News");
    showRecorded();
    state->currentRecord.reset();
    state->openRecord(state->history.records->front());
    EXPECT_EQ(state->currentRecord, state->history.records->front());
    EXPECT_EQ(*state->approved, (Ids{1, 2}));
}

}  // namespace
}  // namespace brindlet
