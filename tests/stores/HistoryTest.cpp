#include "stores/History.h"

#include <gtest/gtest.h>

#include "stores/StoreWorld.h"

namespace brindlet {
namespace {

using Records = std::vector<ScanRecord>;
constexpr double day = 86400;

ScanRecord scan(double unixSeconds, std::string folder = "INBOX", std::string account = "Home") {
    ScanRecord record;
    record.started = Date::fromUnix(unixSeconds);
    record.account = std::move(account);
    record.folder = std::move(folder);
    record.scanned = 9007199254740993;
    record.junk = 3;
    record.protectedCount = 1;
    return record;
}

std::vector<double> starts(const Records& records) {
    std::vector<double> seconds;
    for (const auto& record : records) seconds.push_back(record.started.unix());
    return seconds;
}

std::string recordJson(const std::map<std::string, std::string>& changes = {}) {
    std::map<std::string, std::string> members = {
        {"started", "721692800.5"},
        {"account", R"("Home")"},
        {"folder", R"("INBOX")"},
        {"scanned", "10"},
        {"junk", "3"},
        {"protectedCount", "1"},
        {"moved", "[]"},
    };
    for (const auto& [key, value] : changes) members[key] = value;
    std::string text;
    for (const auto& [key, value] : members)
        if (!value.empty()) text += (text.empty() ? "" : ",") + ("\"" + key + "\":" + value);
    return "{" + text + "}";
}

struct HistoryWorld : StoreWorld {
    History history{services()};
};

TEST(ScanRecordId, IsTheStartInUnixSecondsAndTheFolder) {
    EXPECT_EQ(scan(1700000000).id(), "1700000000.0INBOX");
    EXPECT_EQ(scan(1700000000.25, "Über/Alles").id(), "1700000000.25Über/Alles");
    EXPECT_NE(scan(1700000000.25).id(), scan(1700000000.5).id());
}

TEST(HistoryAdd, PutsTheNewestFirstAndWritesBothFiles) {
    HistoryWorld world;
    auto& history = world.history;
    history.add(scan(2000));
    history.add(scan(3000));
    history.add(scan(1000));
    EXPECT_EQ(starts(*history.records), (std::vector<double>{3000, 2000, 1000}));
    EXPECT_EQ(*History(world.services()).records, *history.records);
    EXPECT_EQ(world.text("history-deleted.json"), "[]");
}

TEST(HistoryAdd, ScansOfOneMomentKeepTheNewerInFront) {
    HistoryWorld world;
    world.history.add(scan(1000, "first"));
    world.history.add(scan(1000, "second"));
    EXPECT_EQ(world.history.records->front().folder, "second");
}

TEST(HistorySave, TheHundredAndFirstRecordDropsTheOldest) {
    HistoryWorld world;
    for (int i = 0; i < 101; ++i) world.history.add(scan(1000 + i));
    EXPECT_EQ(world.history.records->size(), 100u);
    EXPECT_EQ(world.history.records->back().started.unix(), 1001);
    EXPECT_TRUE(world.history.deleted->empty());
    EXPECT_EQ(History(world.services()).records->size(), 100u);
}

TEST(HistorySetMoved, MarksTheNewestScanOfTheFolder) {
    HistoryWorld world;
    auto& history = world.history;
    history.add(scan(1000, "INBOX", "Home"));
    history.add(scan(2000, "INBOX", "Work"));
    history.add(scan(3000, "Other"));
    history.setMoved("INBOX", "Junk", {{"<a>", "s", "t"}, {"<b>", "s", "t"}});
    EXPECT_EQ((*history.records)[0].movedTo, std::nullopt);
    EXPECT_EQ((*history.records)[1].movedTo, "Junk");
    EXPECT_EQ((*history.records)[1].moved.size(), 2u);
    EXPECT_EQ((*history.records)[2].movedTo, std::nullopt);

    // Again: known ids are left out, the rest is added behind; the destination is the latest.
    history.setMoved("INBOX", "Trash", {{"<c>", "s", "t"}, {"<a>", "other", "other"}});
    const auto& record = (*history.records)[1];
    EXPECT_EQ(record.movedTo, "Trash");
    const std::vector<ScanRecord::Moved> expected = {
        {"<a>", "s", "t"}, {"<b>", "s", "t"}, {"<c>", "s", "t"}};
    EXPECT_EQ(record.moved, expected);
    EXPECT_EQ(history.totalMoved(), 3);
    EXPECT_EQ(*History(world.services()).records, *history.records);
}

TEST(HistorySetMoved, AFolderWithoutARecordChangesAndWritesNothing) {
    HistoryWorld world;
    const Signals signals(world.history);
    world.history.setMoved("INBOX", "Junk", {{"<a>", "s", "t"}});
    EXPECT_EQ(signals.count(), 0);
    EXPECT_FALSE(world.has("history.json"));
}

TEST(HistoryBin, ARecordGoesInAndComesBackToItsPlace) {
    HistoryWorld world;
    auto& history = world.history;
    for (const double start : {1000, 2000, 3000}) history.add(scan(start));
    const auto middle = (*history.records)[1];
    history.deleteRecord(middle);
    EXPECT_EQ(starts(*history.records), (std::vector<double>{3000, 1000}));
    ASSERT_EQ(history.deleted->size(), 1u);
    EXPECT_EQ(history.deleted->front().deletedAt, world.clock.now());
    EXPECT_EQ(*History(world.services()).deleted, *history.deleted);

    world.clock.advance(1);
    history.deleteRecord((*history.records)[0]);
    EXPECT_EQ(starts(*history.deleted), (std::vector<double>{3000, 2000}));

    history.restore(middle);
    EXPECT_EQ(starts(*history.records), (std::vector<double>{2000, 1000}));
    EXPECT_EQ(history.records->front(), middle) << "without the date of deletion";
    EXPECT_EQ(starts(*history.deleted), (std::vector<double>{3000}));
    EXPECT_EQ(*History(world.services()).records, *history.records);
}

TEST(HistoryBin, ARecordThatIsNotThereChangesAndWritesNothing) {
    HistoryWorld world;
    world.history.add(scan(1000));
    files::remove(world.file("history.json"));
    const Signals signals(world.history);
    world.history.deleteRecord(scan(2000));
    world.history.restore(scan(1000));
    EXPECT_EQ(signals.count(), 0);
    EXPECT_FALSE(world.has("history.json"));
}

TEST(HistoryBin, ARestoredRecordOlderThanTheHundredIsDroppedByTheSave) {
    HistoryWorld world;
    auto& history = world.history;
    history.add(scan(500));
    const auto oldest = history.records->front();
    history.deleteRecord(oldest);
    for (int i = 0; i < 100; ++i) history.add(scan(1000 + i));
    history.restore(oldest);
    EXPECT_EQ(history.records->size(), 100u);
    EXPECT_EQ(history.records->back().started.unix(), 1000);
    EXPECT_TRUE(history.deleted->empty());
}

TEST(HistoryBin, PurgeRemovesTheRecordAndItsScanAndWritesOnlyTheBin) {
    HistoryWorld world;
    auto& history = world.history;
    for (const double start : {1000, 2000}) {
        history.add(scan(start));
        history.writeScan({}, Date::fromUnix(start));
        history.deleteRecord(history.records->front());
    }
    files::remove(world.file("history.json"));
    history.purge(history.deleted->back());
    EXPECT_EQ(starts(*history.deleted), (std::vector<double>{2000}));
    EXPECT_FALSE(world.has("scans/1000.json"));
    EXPECT_TRUE(world.has("scans/2000.json"));
    EXPECT_FALSE(world.has("history.json"));
    EXPECT_EQ(*History(world.services()).deleted, *history.deleted);
    history.purge(scan(1000));  // the file is gone already
    EXPECT_EQ(history.deleted->size(), 1u);
}

TEST(HistoryBin, EmptyingRemovesEveryScanInItAndWritesOnlyTheBin) {
    HistoryWorld world;
    auto& history = world.history;
    for (const double start : {1000, 2000, 3000}) {
        history.add(scan(start));
        history.writeScan({}, Date::fromUnix(start));
        if (start < 3000) history.deleteRecord(history.records->front());
    }
    files::remove(world.file("history.json"));
    history.emptyBin();
    EXPECT_TRUE(history.deleted->empty());
    EXPECT_FALSE(world.has("scans/1000.json"));
    EXPECT_FALSE(world.has("scans/2000.json"));
    EXPECT_TRUE(world.has("scans/3000.json"));
    EXPECT_FALSE(world.has("history.json"));
    EXPECT_EQ(world.text("history-deleted.json"), "[]");
}

/// A bin of records with the given ages in days, or none, as one file.
std::string binJson(Date now, const std::vector<std::optional<double>>& ages) {
    std::string text;
    for (std::size_t i = 0; i < ages.size(); ++i) {
        std::map<std::string, std::string> changes = {{"started", std::to_string(1000 + i)}};
        if (ages[i]) changes["deletedAt"] = std::to_string((now - *ages[i] * day).sinceReference);
        text += (i ? "," : "") + recordJson(changes);
    }
    return "[" + text + "]";
}

TEST(HistoryExpiry, DropsWhatLayInTheBinForOverThirtyDays) {
    StoreWorld world;
    world.put("history.json", "[" + recordJson() + "]");
    world.put("history-deleted.json",
              binJson(world.clock.now(), {31, 29, std::nullopt, 30, 30.001}));
    files::createDirectories(world.file("scans"));
    for (int i = 0; i < 5; ++i)
        world.put("scans/" + std::to_string(978307200 + 1000 + i) + ".json", "[]");
    const auto history = world.text("history.json");
    const History loaded(world.services());
    std::vector<double> left;
    for (const auto& record : *loaded.deleted) left.push_back(record.started.sinceReference);
    EXPECT_EQ(left, (std::vector<double>{1001, 1003, 1002})) << "a record without a date stays";
    EXPECT_FALSE(world.has("scans/978308200.json"));
    EXPECT_TRUE(world.has("scans/978308201.json"));
    EXPECT_TRUE(world.has("scans/978308202.json"));
    EXPECT_TRUE(world.has("scans/978308203.json"));
    EXPECT_FALSE(world.has("scans/978308204.json"));
    EXPECT_EQ(world.text("history.json"), history) << "only the bin is written";
    EXPECT_EQ(*History(world.services()).deleted, *loaded.deleted);
}

TEST(HistoryExpiry, WritesNothingWhenNothingIsTooOld) {
    StoreWorld world;
    const auto bin = " " + binJson(world.clock.now(), {29, std::nullopt});
    world.put("history-deleted.json", bin);
    EXPECT_EQ(History(world.services()).deleted->size(), 2u);
    EXPECT_EQ(world.text("history-deleted.json"), bin);
}

TEST(HistoryLoad, SortsRecordsByStartAndTheBinByDeletion) {
    StoreWorld world;
    const auto now = world.clock.now();
    world.put("history.json", "[" + recordJson({{"started", "5"}}) + "," +
                                  recordJson({{"started", "7"}}) + "," +
                                  recordJson({{"started", "6"}}) + "]");
    world.put("history-deleted.json", binJson(now, {2, 3, 1, std::nullopt}));
    const History history(world.services());
    EXPECT_EQ((*history.records)[0].started.sinceReference, 7);
    EXPECT_EQ((*history.records)[1].started.sinceReference, 6);
    EXPECT_EQ((*history.records)[2].started.sinceReference, 5);
    std::vector<double> bin;
    for (const auto& record : *history.deleted) bin.push_back(record.started.sinceReference);
    EXPECT_EQ(bin, (std::vector<double>{1002, 1000, 1001, 1003}))
        << "a record without a date of deletion is placed by its start";
}

TEST(HistoryLoad, ADamagedHistoryIsAFreshStartAndLeavesTheBinUnread) {
    std::vector<std::string> texts(std::begin(damagedTexts), std::end(damagedTexts));
    texts.push_back("{}");
    for (const std::map<std::string, std::string>& changes :
         std::vector<std::map<std::string, std::string>>{
             {{"started", ""}},
             {{"started", "null"}},
             {{"started", R"("5")"}},
             {{"account", ""}},
             {{"account", "1"}},
             {{"folder", ""}},
             {{"folder", "null"}},
             {{"scanned", ""}},
             {{"scanned", "1.5"}},
             {{"junk", ""}},
             {{"junk", "true"}},
             {{"protectedCount", ""}},
             {{"protectedCount", R"("1")"}},
             {{"movedTo", "5"}},
             {{"moved", ""}},
             {{"moved", "null"}},
             {{"moved", "{}"}},
             {{"moved", R"([{"messageID":"a","sender":"b"}])"}},
             {{"moved", R"([{"messageID":null,"sender":"b","subject":"c"}])"}},
             {{"deletedAt", R"("now")"}},
         })
        texts.push_back("[" + recordJson() + "," + recordJson(changes) + "]");
    for (const auto& text : texts) {
        SCOPED_TRACE(text);
        StoreWorld world;
        const auto bin = binJson(world.clock.now(), {31, 1});
        world.put("history.json", text);
        world.put("history-deleted.json", bin);
        History history(world.services());
        EXPECT_TRUE(history.loaded());
        EXPECT_TRUE(history.records->empty());
        EXPECT_TRUE(history.deleted->empty());
        EXPECT_FALSE(world.has("history.json"));
        EXPECT_EQ(world.text("history.json.unreadable"), text);
        EXPECT_EQ(world.text("history-deleted.json"), bin) << "no expiry";
        history.add(scan(1000));
        history.deleteRecord(scan(2000));
        EXPECT_EQ(world.text("history-deleted.json"), "[]") << "the next save empties the bin";
        EXPECT_EQ(*History(world.services()).records, *history.records);
    }
}

TEST(HistoryLoad, AnEarlierUnreadableFileKeepsTheDamagedOneInPlace) {
    StoreWorld world;
    world.put("history.json.unreadable", "first damage");
    world.put("history.json", "second damage");
    History history(world.services());
    EXPECT_EQ(world.text("history.json.unreadable"), "first damage");
    EXPECT_EQ(world.text("history.json"), "second damage");
    history.add(scan(1000));
    EXPECT_EQ(world.text("history.json.unreadable"), "first damage");
    EXPECT_EQ(*History(world.services()).records, *history.records);
}

TEST(HistoryLoad, AMissingHistoryStillReadsAndExpiresTheBin) {
    StoreWorld world;
    world.put("history-deleted.json", binJson(world.clock.now(), {31, 1}));
    const History history(world.services());
    EXPECT_TRUE(history.loaded());
    EXPECT_TRUE(history.records->empty());
    EXPECT_EQ(history.deleted->size(), 1u);
    EXPECT_EQ(world.text("history-deleted.json").find("1000"), std::string::npos);
}

TEST(HistoryLoad, ADamagedBinIsAnEmptyOneAndStaysWhereItIs) {
    for (const auto text : damagedTexts) {
        SCOPED_TRACE(text);
        StoreWorld world;
        world.put("history.json", "[" + recordJson() + "]");
        world.put("history-deleted.json", text);
        const History history(world.services());
        EXPECT_EQ(history.records->size(), 1u);
        EXPECT_TRUE(history.deleted->empty());
        EXPECT_EQ(world.text("history-deleted.json"), text);
        EXPECT_FALSE(world.has("history-deleted.json.unreadable"));
    }
}

TEST(HistoryFile, ReadsEveryFieldAndIgnoresUnknownOnes) {
    StoreWorld world;
    world.put("history.json",
              "[" +
                  recordJson({
                      {"started", "721692800.123456"},
                      {"scanned", "9007199254740993"},
                      {"junk", "4.0"},
                      {"movedTo", R"("Junk\/Mail")"},
                      {"moved", R"([{"messageID":"<a@b>","sender":"s","subject":"t","new":[]}])"},
                      {"deletedAt", "null"},
                      {"unknown", R"({"a":[{}]})"},
                  }) +
                  "]");
    ScanRecord expected;
    expected.started = {721692800.123456};
    expected.account = "Home";
    expected.folder = "INBOX";
    expected.scanned = 9007199254740993;
    expected.junk = 4;
    expected.protectedCount = 1;
    expected.movedTo = "Junk/Mail";
    expected.moved = {{"<a@b>", "s", "t"}};
    EXPECT_EQ(*History(world.services()).records, Records{expected});
}

TEST(HistoryFile, StartsAreTheSameInstantsAfterTwoRounds) {
    StoreWorld world;
    Records first;
    {
        History history(world.services());
        for (const double start : {0.1, 721692800.123456, 1.0 / 3, -5.75}) {
            auto record = scan(0);
            record.started = {start};
            history.add(record);
        }
        first = *history.records;
    }
    for (int round = 0; round < 2; ++round) {
        History history(world.services());
        EXPECT_EQ(*history.records, first);
        history.save();
    }
    EXPECT_NE(world.text("history.json").find("721692800.123456"), std::string::npos)
        << "seconds since 2001, not since 1970";
    EXPECT_EQ(world.text("history.json").find("null"), std::string::npos);
}

TEST(HistoryLastScans, TheLatestOfEachAccountAndFolderCounts) {
    HistoryWorld world;
    auto& history = world.history;
    history.add(scan(1000, "INBOX", "Home"));
    history.add(scan(3000, "INBOX", "Home"));
    history.add(scan(2000, "INBOX", "Work"));
    EXPECT_EQ(history.lastScans(), (std::map<std::string, Date>{
                                       {"Home|INBOX", Date::fromUnix(3000)},
                                       {"Work|INBOX", Date::fromUnix(2000)},
                                   }));
}

}  // namespace
}  // namespace brindlet
