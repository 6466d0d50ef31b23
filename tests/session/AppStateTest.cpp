#include "session/AppState.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "base/Files.h"
#include "session/SessionFixture.h"

namespace brindlet {
namespace {

using Screen = AppState::Screen;

class AppStateTest : public SessionTest {
  protected:
    void load(bool force = true) {
        state->loadAccounts(force);
        ASSERT_TRUE(world.mainQueue.pumpUntil([this] { return !*state->loadingAccounts; }));
    }
    void refresh() {
        state->refreshFolders();
        ASSERT_TRUE(world.mainQueue.pumpUntil([this] { return !*state->refreshingFolders; }));
    }
    /// The earlier copy has to go too: a source that is missing leaves it where it was.
    void dropIndex() {
        files::remove(home.dataRoot() + "/MailData/Envelope Index");
        files::remove(world.directories.temporary() + "/brindlet-index.db");
    }
    static MailAccount named(std::string id, std::string address) {
        MailAccount account;
        account.id = std::move(id);
        account.address = std::move(address);
        return account;
    }
};

TEST_F(AppStateTest, BeginsWithTheDefaults) {
    world.defaults.raw.clear();
    open();
    EXPECT_EQ(*state->screen, Screen::welcome);
    EXPECT_EQ(*state->limit, 500);
    EXPECT_EQ(*state->reach, Reach::month);
    EXPECT_EQ(state->inReach.get(), std::nullopt);
    EXPECT_EQ(state->progress(), 0);
}

TEST_F(AppStateTest, TakesStoredBoundsThatMakeSense) {
    const std::tuple<doubles::MemoryDefaults::Value, std::int64_t> limits[] = {
        {std::int64_t{2000}, 2000}, {std::int64_t{0}, 0}, {std::int64_t{-3}, -3}, {12.5, 500},
        {std::string("7"), 500},    {true, 500},
    };
    for (const auto& [stored, limit] : limits) {
        world.defaults.raw["scan.limit"] = stored;
        EXPECT_EQ(*open().limit, limit);
    }
    const std::pair<const char*, Reach> reaches[] = {
        {"week", Reach::week},
        {"threeMonths", Reach::threeMonths},
        {"Year", Reach::month},
        {"decade", Reach::month},
    };
    for (const auto& [stored, reach] : reaches) {
        world.defaults.setString("scan.reach", stored);
        EXPECT_EQ(*open().reach, reach) << stored;
    }
}

TEST_F(AppStateTest, StoresTheBoundsThatAreSet) {
    open();
    state->setLimit(2000);
    EXPECT_EQ(world.defaults.integer("scan.limit"), 2000);
    state->reach.set(Reach::year);
    state->saveReach();
    EXPECT_EQ(world.defaults.string("scan.reach"), "year");
}

TEST_F(AppStateTest, TellsBeforeEachChangeEvenToTheSameValue) {
    open();
    int told = 0;
    std::int64_t seenInside = -1;
    const auto watch = state->subscribe([&] {
        ++told;
        seenInside = *state->limit;
    });
    state->setLimit(500);
    EXPECT_EQ(seenInside, 0) << "the old value";
    state->setLimit(500);
    EXPECT_EQ(told, 2);
}

TEST_F(AppStateTest, PassesOnTheChangesOfEveryStore) {
    open();
    int told = 0;
    const auto watch = state->subscribe([&] { ++told; });
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"rules", [&] { state->rules.forgetAll(); }},
        {"history", [&] { state->history.save(); }},
        {"seen", [&] { state->seen.clear(); }},
        {"schedule", [&] { state->schedule.setMode(SortMode::automatic); }},
        {"destinations", [&] { state->destinations.set("a", "Junk"); }},
        {"calibration", [&] { state->calibration.mute(Category::cannotTell); }},
    };
    for (const auto& [store, change] : changes) {
        told = 0;
        change();
        EXPECT_GT(told, 0) << store;
    }
}

TEST_F(AppStateTest, StoresMayOutliveIt) {
    open();
    state.reset();
}

TEST_F(AppStateTest, NavigatePushesOnlyWhatDiffers) {
    open();
    state->navigate(Screen::pick);
    const auto revision = state->screen.revision();
    state->navigate(Screen::pick);
    EXPECT_EQ(state->screen.revision(), revision + 1) << "published all the same";
    state->goBack();
    EXPECT_EQ(*state->screen, Screen::welcome);
    state->goBack();
    EXPECT_EQ(*state->screen, Screen::welcome) << "an empty stack leaves all as it is";
}

TEST_F(AppStateTest, BackFromResultsReturnsToWhereTheScanBegan) {
    addMany(1);
    open();
    state->navigate(Screen::pick);
    scan();
    EXPECT_EQ(*state->screen, Screen::results);
    state->goBack();
    EXPECT_EQ(*state->screen, Screen::pick);
}

TEST_F(AppStateTest, PressingOnFollowsThePermission) {
    add("a@b.example", "x");
    open();
    state->pressOn();
    EXPECT_EQ(*state->screen, Screen::pick);
    EXPECT_TRUE(*state->loadingAccounts);
    ASSERT_TRUE(world.mainQueue.pumpUntil([this] { return !*state->loadingAccounts; }));
    EXPECT_EQ(state->accounts->size(), 1u);
    EXPECT_EQ((*state->account)->id, doubles::MailHome::account);
}

TEST_F(AppStateTest, PressingOnWithoutPermissionAsksForIt) {
    auto& empty = doubles::World::lasting();
    const auto other = AppState::make(empty.services());
    other->pressOn();
    EXPECT_EQ(*other->screen, Screen::permission);
    empty.retire();
}

TEST_F(AppStateTest, LoadedAccountsAreNotLoadedAgainUnforced) {
    open();
    load();
    const auto revision = state->accounts.revision();
    state->loadAccounts(false);
    EXPECT_FALSE(*state->loadingAccounts);
    EXPECT_EQ(state->accounts.revision(), revision);
}

TEST_F(AppStateTest, SecondLoadDuringOneDoesNotStart) {
    open();
    state->loadAccounts(true);
    state->pendingAccountLabel = "11111111";
    state->loadAccounts(true);
    ASSERT_TRUE(world.mainQueue.pumpUntil([this] { return !*state->loadingAccounts; }));
    world.mainQueue.pump();
    EXPECT_EQ(state->accounts.revision(), 1u);
    EXPECT_EQ(state->pendingAccountLabel, std::nullopt) << "the running load honours it";
}

TEST_F(AppStateTest, EmptyListWithThePermissionGoneSaysSo) {
    open();
    load();
    dropIndex();
    load();
    EXPECT_EQ(state->moveError.get(),
              "macOS has dropped Brindlet's Full Disk Access - flip it back on in Privacy & "
              "Security, then try again.");
}

TEST_F(AppStateTest, NoAccountsWithThePermissionIsNoError) {
    auto& elsewhere = doubles::World::lasting();
    doubles::MailHome bare(elsewhere.directories.home());
    const auto other = AppState::make(elsewhere.services());
    other->loadAccounts(true);
    ASSERT_TRUE(elsewhere.mainQueue.pumpUntil([&] { return !*other->loadingAccounts; }));
    EXPECT_TRUE(other->accounts->empty());
    EXPECT_EQ(other->account.get(), std::nullopt);
    EXPECT_EQ(other->moveError.get(), std::nullopt);
    elsewhere.retire();
}

TEST_F(AppStateTest, LabelWithoutAMatchIsClearedAllTheSame) {
    open();
    state->pendingAccountLabel = "nobody@nowhere.example";
    load();
    EXPECT_EQ(state->pendingAccountLabel, std::nullopt);
    EXPECT_EQ((*state->account)->id, doubles::MailHome::account) << "the first of the list";
}

TEST_F(AppStateTest, RefreshKeepsTheFolderByItsId) {
    add("a@b.example", "x");
    open();
    load();
    state->selectFolder((*state->account)->folders.front());
    ASSERT_TRUE(world.mainQueue.pumpUntil([this] { return *state->inReach == 1; }));
    add("a@b.example", "y");
    refresh();
    ASSERT_TRUE(state->folder->has_value());
    EXPECT_EQ((*state->folder)->count, 2);
    EXPECT_EQ(state->folderVanished.get(), std::nullopt);
    EXPECT_TRUE(world.mainQueue.pumpUntil([this] { return *state->inReach == 2; }));
}

TEST_F(AppStateTest, RefreshFindsAFolderThatMovedToAnotherParent) {
    add("a@b.example", "x");
    home.addMailbox("Archive/INBOX");
    open();
    load();
    auto old = inbox();
    old.id = 4711;
    old.name = "Old/Inbox";
    state->folder.set(old);
    refresh();
    ASSERT_TRUE(state->folder->has_value());
    EXPECT_EQ((*state->folder)->id, mailbox) << "the first in order whose last component matches";
}

TEST_F(AppStateTest, RefreshThatFindsNothingNamesWhatVanished) {
    add("a@b.example", "x");
    open();
    load();
    auto old = inbox();
    old.id = 4711;
    old.name = "Projects/Garden";
    state->folder.set(old);
    state->inReach.set(8);
    refresh();
    EXPECT_EQ(state->folder.get(), std::nullopt);
    EXPECT_EQ(state->inReach.get(), std::nullopt);
    EXPECT_EQ(state->folderVanished.get(), "Projects/Garden");
    state->dismissVanished();
    EXPECT_EQ(state->folderVanished.get(), std::nullopt);
}

TEST_F(AppStateTest, RefreshWhoseAccountIsGoneTakesTheFirst) {
    open();
    load();
    state->account.set(named("gone", "gone@x.example"));
    state->folder.set(inbox());
    state->inReach.set(8);
    refresh();
    EXPECT_EQ((*state->account)->id, doubles::MailHome::account);
    EXPECT_EQ(state->folder.get(), std::nullopt);
    EXPECT_EQ(state->inReach.get(), std::nullopt);
    EXPECT_EQ(state->folderVanished.get(), std::nullopt);
}

TEST_F(AppStateTest, RefreshWithAnEmptyResultChangesNothing) {
    open();
    load();
    const auto revision = state->accounts.revision();
    dropIndex();
    refresh();
    EXPECT_EQ(state->accounts.revision(), revision);
    EXPECT_EQ(state->accounts->size(), 1u);
}

TEST_F(AppStateTest, RefreshDuringAScanDoesNothing) {
    addMany(4);
    open();
    load();
    world.model.block();
    state->startScan(account(), inbox());
    state->refreshFolders();
    EXPECT_FALSE(*state->refreshingFolders);
    world.model.release();
    finishTask();
    EXPECT_FALSE(*state->refreshingFolders) << "and none follows";
}

TEST_F(AppStateTest, ChoosingAnotherAccountClearsTheFolder) {
    add("a@b.example", "x");
    open();
    load();
    state->selectFolder((*state->account)->folders.front());
    state->selectAccount((*state->accounts).front());
    EXPECT_TRUE(state->folder->has_value()) << "the same account keeps it";
    state->selectAccount(named("other", ""));
    EXPECT_EQ(state->folder.get(), std::nullopt);
    EXPECT_EQ(state->inReach.get(), std::nullopt);
}

TEST_F(AppStateTest, EmptyFolderCannotBeSelected) {
    open();
    auto empty = inbox();
    empty.count = 0;
    const auto revision = state->inReach.revision();
    state->selectFolder(empty);
    EXPECT_EQ(state->folder.get(), std::nullopt);
    EXPECT_EQ(state->inReach.revision(), revision);
}

TEST_F(AppStateTest, CountsWhatIsInReachLessWhatWasDecided) {
    addMany(5);
    open();
    load();
    const auto count = [&] {
        state->inReach.set(std::nullopt);
        state->refreshInReach();
        world.mainQueue.pumpUntil([&] { return state->inReach->has_value(); });
        return **state->inReach;
    };
    state->selectFolder((*state->account)->folders.front());
    ASSERT_TRUE(world.mainQueue.pumpUntil([&] { return state->inReach->has_value(); }));
    EXPECT_EQ(count(), 5);
    state->seen.mark({"m1@example", "m2@example"}, false, "11111111", "INBOX");
    EXPECT_EQ(count(), 3);
    state->seen.setSkipSeen(false);
    EXPECT_EQ(count(), 5);
    state->setLimit(1);
    state->seen.setSkipSeen(true);
    EXPECT_EQ(count(), 0) << "never below nothing";
    state->folder.set(std::nullopt);
    state->refreshInReach();
    EXPECT_EQ(state->inReach.get(), std::nullopt);
}

TEST_F(AppStateTest, InAJunkFolderOnlyWhatWasFiledThereIsSubtracted) {
    role = MailFolder::Role::junk;
    open();
    state->account.set(account());
    state->folder.set(inbox());
    state->seen.mark({"a"}, true, "11111111", "Junk");
    state->seen.mark({"b", "c"}, false, "11111111", "Junk");
    EXPECT_EQ(state->decidedInFolder(), 1);
}

TEST_F(AppStateTest, LoadingStoresThatNeedRepairTellsNobody) {
    const auto store = world.directories.store();
    files::write(store + "/rules.json",
                 R"([{"sender":"x@shop.example","verdict":"junk","scope":"always","hits":1,)"
                 R"("created":0,"example":"added by hand","legacy":false}])");
    open();
    EXPECT_EQ(state->rules.all->front().sender, "shop.example");
    EXPECT_EQ(state->screen.revision(), 0u);
}

TEST_F(AppStateTest, ScanWithoutASelectionDoesNothing) {
    open();
    state->startScan(std::nullopt, std::nullopt);
    EXPECT_FALSE(*state->running);
    EXPECT_EQ(*state->screen, Screen::welcome);
}

}  // namespace
}  // namespace brindlet
