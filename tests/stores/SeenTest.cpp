#include "stores/Seen.h"

#include <gtest/gtest.h>

#include <thread>

#include "stores/History.h"
#include "stores/StoreWorld.h"

namespace brindlet {
namespace {

using Entry = Seen::Entry;
using Items = std::vector<std::pair<std::string, bool>>;
using Ids = std::vector<std::string>;
constexpr auto none = std::nullopt;

struct SeenWorld : StoreWorld {
    Seen seen{services()};
};

TEST(SeenSkip, IsOnUnlessTheDefaultSaysOtherwise) {
    StoreWorld world;
    Seen seen(world.services());
    EXPECT_TRUE(seen.skipSeen());
    const Signals signals(seen);
    seen.setSkipSeen(false);
    EXPECT_EQ(world.defaults.raw.at("skipSeen"), doubles::MemoryDefaults::Value(false));
    EXPECT_EQ(signals.count(), 1);
    EXPECT_FALSE(Seen(world.services()).skipSeen());
    world.defaults.raw["skipSeen"] = std::string("no");
    EXPECT_TRUE(Seen(world.services()).skipSeen());
}

TEST(SeenMark, RecordsTheDecisionTheTimeAndThePlace) {
    SeenWorld world;
    world.seen.mark(Items{{"a", true}, {"b", false}}, "Home", "INBOX");
    EXPECT_EQ(world.seen.find("a"), (Entry{true, world.clock.now(), "Home", "INBOX"}));
    EXPECT_EQ(world.seen.find("b"), (Entry{false, world.clock.now(), "Home", "INBOX"}));
    EXPECT_EQ(Seen(world.services()).entries(), world.seen.entries());
}

TEST(SeenMark, TheLastDecisionWins) {
    SeenWorld world;
    auto& seen = world.seen;
    seen.mark(Ids{"a"}, true, "Home", "INBOX");
    world.clock.advance(60);
    seen.mark(Ids{"a"}, false, "Home", "INBOX");
    EXPECT_EQ(seen.size(), 1u);
    EXPECT_EQ(seen.find("a"), (Entry{false, world.clock.now(), "Home", "INBOX"}));
    EXPECT_EQ(seen.count("Home", "INBOX"), 1);
    EXPECT_EQ(seen.junkCount("Home", "INBOX"), 0);
    seen.mark(Items{{"a", false}, {"a", true}}, "Home", "Other");
    EXPECT_EQ(seen.find("a")->junk, true) << "within one call too";
    EXPECT_EQ(seen.count("Home", "INBOX"), 0);
    EXPECT_EQ(seen.junkCount("Home", "Other"), 1);
}

TEST(SeenMark, WithoutAPlaceItClearsTheOneThatWasThere) {
    SeenWorld world;
    world.seen.mark(Ids{"a"}, true, "Home", "INBOX");
    world.seen.mark(Ids{"a"}, true, none, none);
    EXPECT_EQ(world.seen.find("a"), (Entry{true, world.clock.now(), none, none}));
}

TEST(SeenMark, AnEmptyListStillWritesTheFile) {
    SeenWorld world;
    EXPECT_FALSE(world.has("seen.json"));
    world.seen.mark(Ids(), true, "Home", "INBOX");
    EXPECT_EQ(world.text("seen.json"), "{}");
    files::remove(world.file("seen.json"));
    world.seen.mark(Items(), "Home", "INBOX");
    EXPECT_EQ(world.text("seen.json"), "{}");
}

TEST(SeenMark, EmptyIdsAreSkippedWithoutAWord) {
    SeenWorld world;
    world.seen.mark(Items{{"", true}, {"a", true}, {"", false}}, "Home", "INBOX");
    EXPECT_EQ(world.seen.size(), 1u);
    world.seen.mark(Ids{"", ""}, true, "Home", "INBOX");
    EXPECT_EQ(world.seen.size(), 1u);
    EXPECT_EQ(world.seen.count("Home", "INBOX"), 1);
}

TEST(SeenMark, TellsObserversOnceBeforeTheChange) {
    SeenWorld world;
    std::vector<std::size_t> sizes;
    const auto subscription = world.seen.subscribe([&] { sizes.push_back(world.seen.size()); });
    const auto revision = world.seen.revision();
    world.seen.mark(Ids{"a", "b", "c"}, true, "Home", "INBOX");
    EXPECT_EQ(sizes, (std::vector<std::size_t>{0}));
    EXPECT_GT(world.seen.revision(), revision);
    world.seen.clear();
    EXPECT_EQ(sizes, (std::vector<std::size_t>{0, 3}));
}

TEST(SeenCount, CountsExactlyTheNamedPlace) {
    SeenWorld world;
    auto& seen = world.seen;
    seen.mark(Items{{"a", true}, {"b", false}, {"c", false}}, "Home", "INBOX");
    seen.mark(Items{{"d", true}}, "Home", "Junk");
    seen.mark(Items{{"e", true}}, "Work", "INBOX");
    seen.mark(Items{{"f", true}}, none, "INBOX");
    seen.mark(Items{{"g", true}}, "Home", none);
    seen.mark(Items{{"h", true}}, none, none);
    seen.mark(Items{{"i", true}}, "", "");
    for (const bool reloaded : {false, true}) {
        SCOPED_TRACE(reloaded);
        const Seen again(world.services());
        const Seen& asked = reloaded ? again : seen;
        EXPECT_EQ(asked.count("Home", "INBOX"), 3);
        EXPECT_EQ(asked.junkCount("Home", "INBOX"), 1);
        EXPECT_EQ(asked.count("Home"), 4) << "an entry without a folder does not count";
        EXPECT_EQ(asked.count("Work"), 1);
        EXPECT_EQ(asked.count("Work", "Junk"), 0);
        EXPECT_EQ(asked.count("nobody"), 0);
        EXPECT_EQ(asked.count("INBOX", "Home"), 0);
        for (const char* folder : {"", "INBOX"}) {
            EXPECT_EQ(asked.count("", folder), 0);
            EXPECT_EQ(asked.junkCount("", folder), 0);
        }
        EXPECT_EQ(asked.count("Home", ""), 0);
        EXPECT_EQ(asked.junkCount("Home", ""), 0);
        EXPECT_EQ(asked.count(""), 0);
    }
}

TEST(SeenCount, AgreesWithAWalkOverAllEntries) {
    SeenWorld world;
    const std::string names[] = {"a", "b", "c"};
    for (int i = 0; i < 60; ++i) {
        Items items;
        for (int k = 0; k < 40; ++k)
            items.emplace_back("id" + std::to_string((i * 31 + k * 17) % 400), (i + k) % 2);
        world.seen.mark(items, names[i % 3], names[i % 2]);
    }
    for (const auto& account : names)
        for (const auto& folder : names) {
            std::int64_t count = 0, junk = 0;
            for (const auto& [id, entry] : world.seen.entries()) {
                if (entry.account != account || entry.folder != folder) continue;
                ++count;
                junk += entry.junk;
            }
            EXPECT_EQ(world.seen.count(account, folder), count);
            EXPECT_EQ(world.seen.junkCount(account, folder), junk);
        }
}

TEST(SeenClear, EmptiesTheListAndTheFile) {
    SeenWorld world;
    world.seen.mark(Ids{"a", "b"}, true, "Home", "INBOX");
    world.seen.clear();
    EXPECT_EQ(world.seen.size(), 0u);
    EXPECT_EQ(world.seen.find("a"), none);
    EXPECT_EQ(world.seen.count("Home"), 0);
    EXPECT_EQ(world.text("seen.json"), "{}");
}

TEST(SeenKeys, StayAsTheyWereWhileTheListChanges) {
    SeenWorld world;
    auto& seen = world.seen;
    seen.mark(Items{{"a", true}, {"b", false}}, "Home", "INBOX");
    const auto before = seen.keys();
    seen.mark(Items{{"a", false}, {"c", true}}, "Home", "INBOX");
    const auto between = seen.keys();
    seen.clear();

    EXPECT_TRUE(before->contains("a"));
    EXPECT_TRUE(before->containsJunk("a"));
    EXPECT_TRUE(before->contains("b"));
    EXPECT_FALSE(before->containsJunk("b"));
    EXPECT_FALSE(before->contains("c"));
    EXPECT_FALSE(before->contains(""));
    EXPECT_EQ(before->junkSize(), 1u);

    EXPECT_FALSE(between->containsJunk("a"));
    EXPECT_TRUE(between->containsJunk("c"));
    EXPECT_EQ(between->junkSize(), 1u);

    EXPECT_FALSE(seen.keys()->contains("a"));
    EXPECT_EQ(seen.keys()->junkSize(), 0u);
}

TEST(SeenKeys, OutliveTheStore) {
    StoreWorld world;
    std::shared_ptr<const Seen::Keys> keys;
    {
        Seen seen(world.services());
        seen.mark(Ids{"a"}, true, "Home", "INBOX");
        keys = seen.keys();
    }
    EXPECT_TRUE(keys->contains("a"));
}

TEST(SeenKeys, AreAskedOnOtherThreadsWhileTheListGrows) {
    SeenWorld world;
    auto& seen = world.seen;
    const auto id = [](int n) { return "message-" + std::to_string(n); };
    for (int round = 0; round < 20; ++round) {
        const int known = round * 50;
        std::thread reader([&, keys = seen.keys()]() mutable {
            for (int n = 0; n < known + 50; ++n) EXPECT_EQ(keys->contains(id(n)), n < known) << n;
            keys.reset();
        });
        Ids ids;
        for (int n = known; n < known + 50; ++n) ids.push_back(id(n));
        seen.mark(ids, true, "Home", "INBOX");
        reader.join();
    }
    EXPECT_EQ(seen.size(), 1000u);
}

/// A record with its scan's file, `started` being so many Unix seconds.
struct Attribution : StoreWorld {
    std::unique_ptr<History> history = std::make_unique<History>(services());

    ScanRecord scanned(double started, const std::string& folder, const Ids& ids) {
        ScanRecord record;
        record.started = Date::fromUnix(started);
        record.account = "Home";
        record.folder = folder;
        std::vector<ScanRecord::Saved> saved;
        for (const auto& id : ids) {
            saved.emplace_back();
            if (!id.empty()) saved.back().messageID = id;
        }
        history->writeScan(saved, record.started);
        history->add(record);
        return record;
    }
    void moved(double started, const std::string& folder, const std::string& movedTo,
               const Ids& ids) {
        ScanRecord record;
        record.started = Date::fromUnix(started);
        record.account = "Home";
        record.folder = folder;
        record.movedTo = movedTo;
        for (const auto& id : ids) record.moved.push_back({id, "s", "t"});
        history->add(record);
    }
    std::unique_ptr<Seen> started() {
        auto seen = std::make_unique<Seen>(services());
        seen->attribute(*history);
        return seen;
    }
};

TEST(SeenAttribute, FillsThePlaceOfOldEntriesFromTheScans) {
    Attribution world;
    world.put("seen.json", R"({"old":{"junk":false,"when":5},
                               "half":{"junk":true,"when":6,"account":"Elsewhere"},
                               "known":{"junk":true,"when":7,"account":"A","folder":"F"},
                               "lost":{"junk":true,"when":8}})");
    world.scanned(1000, "INBOX", {"old", "half", "known", "", "unknown"});
    const auto seen = world.started();
    EXPECT_EQ(seen->find("old"), (Entry{false, {5}, "Home", "INBOX"}));
    EXPECT_EQ(seen->find("half"), (Entry{true, {6}, "Home", "INBOX"}));
    EXPECT_EQ(seen->find("known"), (Entry{true, {7}, "A", "F"}));
    EXPECT_EQ(seen->find("lost"), (Entry{true, {8}, none, none}));
    EXPECT_EQ(seen->find("unknown"), none);
    EXPECT_EQ(seen->size(), 4u);
    EXPECT_EQ(Seen(world.services()).entries(), seen->entries()) << "saved";
}

TEST(SeenAttribute, TheNewestScanSettlesThePlace) {
    Attribution world;
    world.put("seen.json", R"({"a":{"junk":false,"when":5}})");
    world.scanned(1000, "Old", {"a"});
    world.scanned(3000, "New", {"a"});
    world.scanned(2000, "Middle", {"a"});
    EXPECT_EQ(world.started()->find("a")->folder, "New");
}

TEST(SeenAttribute, SkipsScansThatAreGoneOrDamaged) {
    Attribution world;
    world.put("seen.json", R"({"a":{"junk":false,"when":5}})");
    world.scanned(1000, "INBOX", {"a"});
    world.scanned(2000, "Damaged", {"a"});
    world.scanned(3000, "Gone", {"a"});
    world.put("scans/2000.json", "[");
    files::remove(world.file("scans/3000.json"));
    EXPECT_EQ(world.started()->find("a")->folder, "INBOX");
}

TEST(SeenAttribute, AMovedMessageStandsInItsDestinationThoughItsScanSaysTheSource) {
    Attribution world;
    world.scanned(1000, "INBOX", {"moved", "stayed"});
    {
        Seen seen(world.services());
        seen.mark(Ids{"moved", "stayed"}, true, "Home", "INBOX");
    }
    const Date marked = world.clock.now();
    world.clock.advance(60);
    world.history->setMoved("INBOX", "Junk",
                            {{"moved", "s", "t"}, {"", "s", "t"}, {"new", "s", "t"}});
    const auto seen = world.started();
    EXPECT_EQ(seen->find("moved"), (Entry{true, marked, "Home", "Junk"}));
    EXPECT_EQ(seen->find("stayed"), (Entry{true, marked, "Home", "INBOX"}));
    EXPECT_EQ(seen->find("new"), (Entry{true, world.clock.now(), "Home", "Junk"}));
    EXPECT_EQ(seen->size(), 3u);
}

TEST(SeenAttribute, AMovedMessageIsJunkAgainWhateverWasDecidedSince) {
    Attribution world;
    world.moved(1000, "INBOX", "Junk", {"a"});
    {
        Seen seen(world.services());
        seen.mark(Ids{"a"}, false, "Work", "Junk");
    }
    EXPECT_EQ(world.started()->find("a"), (Entry{true, world.clock.now(), "Home", "Junk"}));
}

TEST(SeenAttribute, WritesNothingWhenNothingChanged) {
    Attribution world;
    world.scanned(1000, "INBOX", {"a"});
    world.history->setMoved("INBOX", "Junk", {{"a", "s", "t"}});
    const std::string text =
        R"({ "a":{"junk":true,"when":5,"account":"Work","folder":"Junk"}, "b":{"junk":true,"when":5}})";
    world.put("seen.json", text);
    Seen seen(world.services());
    const Signals signals(seen);
    seen.attribute(*world.history);
    EXPECT_EQ(world.text("seen.json"), text);
    EXPECT_EQ(signals.count(), 0);
}

TEST(SeenAttribute, OfTwoRecordsThatMovedOneMessageTheOldestWinsAndEveryStartSavesAgain) {
    Attribution world;
    world.moved(1000, "INBOX", "Old Junk", {"a"});
    world.moved(2000, "INBOX", "New Junk", {"a"});
    EXPECT_EQ(world.started()->find("a")->folder, "Old Junk");
    const auto bytes = world.text("seen.json");
    // The second start goes over the newer record first, and so changes the entry twice.
    files::remove(world.file("seen.json"));
    ASSERT_TRUE(files::write(world.file("seen.json"), " " + bytes));
    EXPECT_EQ(world.started()->find("a")->folder, "Old Junk");
    EXPECT_EQ(world.text("seen.json"), bytes) << "saved again, to the same effect";
}

TEST(SeenAttribute, ASecondStartAfterASingleMoveLeavesTheFileAlone) {
    Attribution world;
    world.moved(1000, "INBOX", "Junk", {"a"});
    world.started();
    const auto path = world.file("seen.json");
    const auto bytes = " " + world.text("seen.json");
    ASSERT_TRUE(files::write(path, bytes));
    world.started();
    EXPECT_EQ(world.text("seen.json"), bytes);
}

}  // namespace
}  // namespace brindlet
