#include <gtest/gtest.h>

#include <filesystem>

#include "stores/Calibration.h"
#include "stores/Destinations.h"
#include "stores/History.h"
#include "stores/Interrupted.h"
#include "stores/Rules.h"
#include "stores/Schedule.h"
#include "stores/Seen.h"
#include "stores/StoreWorld.h"

namespace brindlet {
namespace {

struct AllStores {
    explicit AllStores(Services services)
        : calibration(services),
          interrupted(services),
          rules(services),
          history(services),
          seen(services) {}
    Calibration calibration;
    Interrupted interrupted;
    Rules rules;
    History history;
    Seen seen;

    /// Changes each, as a person would.
    void change(const std::string& mark) {
        calibration.record(Category::newsletterOrDigest, Rule::Verdict::keep, mark);
        PendingMove move;
        move.remaining = {{1, mark}};
        interrupted.begin(move);
        rules.add(mark + "@x.example", std::nullopt, Rule::Verdict::junk, Rule::Scope::always, mark,
                  {});
        ScanRecord record;
        record.folder = mark;
        history.add(record);
        history.writeScan({}, record.started);
        seen.mark({mark}, true, "Home", "INBOX");
    }
    void expectOnly(const std::string& mark) const {
        EXPECT_EQ(calibration.byCategory->at("newsletterOrDigest").keepSenders, std::vector{mark});
        ASSERT_TRUE(*interrupted.pending);
        EXPECT_EQ((*interrupted.pending)->remaining.front().messageID, mark);
        ASSERT_EQ(rules.all->size(), 1u);
        EXPECT_EQ(rules.all->front().example, mark);
        ASSERT_EQ(history.records->size(), 1u);
        EXPECT_EQ(history.records->front().folder, mark);
        EXPECT_EQ(seen.size(), 1u);
        EXPECT_TRUE(seen.find(mark));
    }
    void expectEmpty() const {
        EXPECT_TRUE(calibration.byCategory->empty());
        EXPECT_FALSE(*interrupted.pending);
        EXPECT_TRUE(rules.combined().empty());
        EXPECT_TRUE(history.records->empty());
        EXPECT_TRUE(history.deleted->empty());
        EXPECT_EQ(seen.size(), 0u);
    }
};

TEST(Stores, AFirstRunFindsAndWritesNothing) {
    StoreWorld world;
    const AllStores stores(world.services());
    stores.expectEmpty();
    EXPECT_TRUE(files::list(world.directories.store())->empty());
}

TEST(Stores, ADirectoryThatCannotBeMadeGivesEmptyStoresThatWorkInMemory) {
    StoreWorld world;
    world.makeUnwritable();
    {
        AllStores stores(world.services());
        stores.expectEmpty();
        stores.change("a");
        stores.expectOnly("a");
        stores.history.deleteRecord(stores.history.records->front());
        EXPECT_EQ(stores.history.deleted->size(), 1u);
        stores.history.emptyBin();
        stores.seen.clear();
    }
    AllStores(world.services()).expectEmpty();
}

#if defined(__linux__)
TEST(Stores, AFullDiskKeepsTheStateInMemory) {
    StoreWorld world;
    AllStores stores(world.services());
    for (const char* name : {"rules.json", "calibration.json", "history.json",
                             "history-deleted.json", "pending-move.json", "seen.json"})
        std::filesystem::create_symlink("/dev/full", world.file(name));
    stores.change("a");
    stores.expectOnly("a");
}
#endif

TEST(Stores, AFileThatIsADirectoryIsLikeNone) {
    StoreWorld world;
    for (const char* name : {"rules.json", "calibration.json", "history.json",
                             "history-deleted.json", "pending-move.json", "seen.json"})
        ASSERT_TRUE(files::createDirectories(world.file(name)));
    AllStores stores(world.services());
    stores.expectEmpty();
    stores.change("a");
    stores.expectOnly("a");
}

TEST(Stores, TheLastOfTwoWritersWins) {
    StoreWorld world;
    AllStores first(world.services());
    AllStores second(world.services());
    first.change("first");
    second.change("second");
    AllStores(world.services()).expectOnly("second");
    first.change("first");
    const AllStores reloaded(world.services());
    EXPECT_EQ(reloaded.history.records->size(), 2u);
    EXPECT_EQ(reloaded.rules.all->front().hits, 2);
    EXPECT_TRUE(reloaded.seen.find("first"));
    EXPECT_FALSE(reloaded.seen.find("second"));
}

TEST(Stores, AHalfWrittenFileIsADamagedOne) {
    StoreWorld world;
    AllStores(world.services()).change("a");
    for (const char* name :
         {"rules.json", "calibration.json", "history.json", "pending-move.json", "seen.json"}) {
        const auto text = world.text(name);
        world.put(name, std::string_view(text).substr(0, text.size() / 2));
    }
    const AllStores stores(world.services());
    stores.expectEmpty();
    EXPECT_TRUE(world.has("rules.json"));
    EXPECT_TRUE(world.has("seen.json"));
    EXPECT_TRUE(world.has("pending-move.json"));
    EXPECT_TRUE(world.has("calibration.json.unreadable"));
    EXPECT_TRUE(world.has("history.json.unreadable"));
}

TEST(Stores, AreOverwrittenInPlace) {
    StoreWorld world;
    AllStores stores(world.services());
    stores.change("a");
    // Another name for the same file shows that it is neither renamed over nor removed.
    for (const char* name :
         {"rules.json", "calibration.json", "history.json", "pending-move.json", "seen.json"})
        std::filesystem::create_hard_link(world.file(name), world.directories.root() + "/" + name);
    stores.change("b");
    for (const char* name :
         {"rules.json", "calibration.json", "history.json", "pending-move.json", "seen.json"})
        EXPECT_EQ(files::read(world.directories.root() + "/" + name), world.text(name)) << name;
    EXPECT_EQ(files::list(world.directories.store())->size(), 7u) << "no file beside them";
}

TEST(Stores, AnEmptyDirectoryMeansTheWorkingOne) {
    StoreWorld world;
    const auto before = std::filesystem::current_path();
    std::filesystem::create_directories(world.directories.root() + "/working");
    std::filesystem::current_path(world.directories.root() + "/working");
    world.directories.setStore("");
    {
        AllStores stores(world.services());
        stores.change("a");
        AllStores(world.services()).expectOnly("a");
    }
    EXPECT_TRUE(files::exists("rules.json"));
    EXPECT_TRUE(files::exists("scans/978307200.json"));
    std::filesystem::current_path(before);
}

TEST(Stores, OtherStoresOfTheSettingsLeaveTheDirectoryAlone) {
    StoreWorld world;
    Schedule schedule(world.services());
    schedule.setEnabled(true);
    Destinations destinations(world.services());
    destinations.set("one", "Junk");
    EXPECT_TRUE(files::list(world.directories.store())->empty());
}

}  // namespace
}  // namespace brindlet
