#include <gtest/gtest.h>

#include <thread>

#include "stores/History.h"
#include "stores/StoreWorld.h"

namespace brindlet {
namespace {

using Saved = ScanRecord::Saved;

Saved message(std::int64_t n, std::optional<bool> approved = {}) {
    Saved saved;
    saved.n = n;
    if (n % 2) saved.messageID = "id" + std::to_string(n) + "@x.example";
    saved.sender = "Shop <news@x.example>";
    saved.subject = "Sale / \"now\"\n";
    saved.category = "advertisingOrPromotion";
    saved.isJunk = true;
    saved.approved = approved;
    return saved;
}

struct ScansWorld : StoreWorld {
    const History history{services()};
    std::size_t fileCount() const { return files::list(file("scans"))->size(); }
};

TEST(HistoryScans, AreNamedByWholeUnixSecondsAndReadBack) {
    ScansWorld world;
    const std::vector<Saved> saved = {message(9007199254740993), message(2, true),
                                      message(-1, false)};
    world.history.writeScan(saved, Date::fromUnix(1700000000.999));
    EXPECT_TRUE(world.has("scans/1700000000.json"));
    EXPECT_EQ(world.history.readScan(Date::fromUnix(1700000000.999)), saved);
    EXPECT_EQ(world.text("scans/1700000000.json").find("null"), std::string::npos);
}

TEST(HistoryScans, TwoOfOneSecondShareAFileAndTheLaterOverwritesIt) {
    ScansWorld world;
    world.history.writeScan({message(1)}, Date::fromUnix(1700000000.25));
    world.history.writeScan({message(2)}, Date::fromUnix(1700000000.75));
    EXPECT_EQ(world.history.readScan(Date::fromUnix(1700000000.25)), std::vector{message(2)});
    EXPECT_EQ(world.fileCount(), 1u);
}

TEST(HistoryScans, ADateOutOfReachIsStillAFile) {
    ScansWorld world;
    for (const double seconds : {1e300, -1e300, -0.5}) {
        world.history.writeScan({message(1)}, {seconds});
        EXPECT_EQ(world.history.readScan({seconds}), std::vector{message(1)}) << seconds;
    }
    EXPECT_TRUE(world.has("scans/978307199.json"));
}

TEST(HistoryScans, WhetherOneStandsIsToldWithoutReadingIt) {
    ScansWorld world;
    const auto started = Date::fromUnix(1700000000.5);
    EXPECT_FALSE(world.history.hasScan(started));
    world.history.writeScan({message(1)}, started);
    EXPECT_TRUE(world.history.hasScan(started));
    EXPECT_FALSE(world.history.hasScan(Date::fromUnix(1700000001)));
    world.put("scans/1700000000.json", "damaged");
    EXPECT_TRUE(world.history.hasScan(started)) << "only opening it tells that it is damaged";
    files::remove(world.file("scans/1700000000.json"));
    EXPECT_FALSE(world.history.hasScan(started));
}

TEST(HistoryScans, OnlyTheTwentyGreatestNamesStay) {
    ScansWorld world;
    for (int i = 0; i < 20; ++i) world.history.writeScan({}, Date::fromUnix(1700000000 + i));
    EXPECT_EQ(world.fileCount(), 20u);
    world.history.writeScan({}, Date::fromUnix(1700000020));
    EXPECT_EQ(world.fileCount(), 20u);
    EXPECT_FALSE(world.has("scans/1700000000.json"));
    EXPECT_TRUE(world.has("scans/1700000020.json"));
}

TEST(HistoryScans, AForeignFileTakesAPlaceLikeAnyOther) {
    ScansWorld world;
    files::createDirectories(world.file("scans"));
    world.put("scans/notes.txt", "mine");
    world.put("scans/.hidden", "mine");
    for (int i = 0; i < 20; ++i) world.history.writeScan({}, Date::fromUnix(1700000000 + i));
    EXPECT_EQ(world.fileCount(), 20u);
    EXPECT_TRUE(world.has("scans/notes.txt")) << "letters sort after digits";
    EXPECT_FALSE(world.has("scans/.hidden")) << "a dot sorts before them";
    EXPECT_FALSE(world.has("scans/1700000000.json"));
}

TEST(HistoryScans, AMissingOrDamagedFileIsAFailure) {
    ScansWorld world;
    const auto started = Date::fromUnix(1700000000);
    EXPECT_EQ(world.history.readScan(started), std::nullopt);
    files::createDirectories(world.file("scans"));

    const auto whole = std::string(
        R"([{"n":1,"sender":"s","subject":"t","category":"c","isJunk":true,"vetoed":false}])");
    world.put("scans/1700000000.json", whole);
    ASSERT_TRUE(world.history.readScan(started));
    std::vector<std::string> texts(std::begin(damagedTexts), std::end(damagedTexts));
    for (std::size_t length = 0; length < whole.size(); ++length)
        texts.push_back(whole.substr(0, length));
    for (
        const char* rest :
        {R"("subject":"t","category":"c","isJunk":true,"vetoed":false,"sender":null)",
         R"("sender":"s","category":"c","isJunk":true,"vetoed":false)",
         R"("sender":"s","subject":"t","isJunk":true,"vetoed":false)",
         R"("sender":"s","subject":"t","category":"c","vetoed":false)",
         R"("sender":"s","subject":"t","category":"c","isJunk":true)",
         R"("sender":"s","subject":"t","category":"c","isJunk":1,"vetoed":false)",
         R"("sender":"s","subject":"t","category":"c","isJunk":true,"vetoed":false,"approved":1)",
         R"("sender":"s","subject":"t","category":"c","isJunk":true,"vetoed":false,"messageID":1)"})
        texts.push_back(std::string(R"([{"n":1,)") + rest + "}]");
    texts.push_back(
        R"([{"n":"1","sender":"s","subject":"t","category":"c","isJunk":true,"vetoed":false}])");
    for (const auto& text : texts) {
        world.put("scans/1700000000.json", text);
        EXPECT_EQ(world.history.readScan(started), std::nullopt) << text;
    }
}

TEST(HistoryScans, NullAndUnknownFieldsAreAccepted) {
    ScansWorld world;
    files::createDirectories(world.file("scans"));
    world.put("scans/5.json", R"([{"n":2.0,"messageID":null,"sender":"s","subject":"t",
        "category":"fromTheFuture","isJunk":false,"vetoed":true,"approved":null,"more":{}}])");
    Saved expected;
    expected.n = 2;
    expected.sender = "s";
    expected.subject = "t";
    expected.category = "fromTheFuture";
    expected.vetoed = true;
    EXPECT_EQ(world.history.readScan(Date::fromUnix(5)), std::vector{expected});
}

TEST(HistoryStampApproved, TouchesOnlyTheConsidered) {
    ScansWorld world;
    const auto started = Date::fromUnix(1700000000);
    world.history.writeScan({message(1), message(2, true), message(3, true), message(4, false)},
                            started);
    world.history.stampApproved({1, 2, 9}, {1, 3, 4, 9}, started);
    EXPECT_EQ(world.history.readScan(started), (std::vector{message(1, true), message(2, false),
                                                            message(3, true), message(4, false)}));
}

TEST(HistoryStampApproved, DoesNothingWithoutAReadableScan) {
    ScansWorld world;
    const auto started = Date::fromUnix(1700000000);
    world.history.stampApproved({1}, {1}, started);
    EXPECT_FALSE(world.has("scans"));
    files::createDirectories(world.file("scans"));
    world.put("scans/1700000000.json", "damage");
    world.history.stampApproved({1}, {1}, started);
    EXPECT_EQ(world.text("scans/1700000000.json"), "damage");
}

TEST(HistoryStampApproved, CleansTheFolderLikeAnyWrite) {
    ScansWorld world;
    const auto started = Date::fromUnix(1700000000);
    world.history.writeScan({message(1)}, started);
    for (int i = 0; i < 20; ++i) world.put("scans/160000000" + std::to_string(i) + ".json", "[]");
    world.history.stampApproved({1}, {1}, started);
    EXPECT_EQ(world.fileCount(), 20u);
}

TEST(HistoryScans, MayBeWrittenOnAnotherThread) {
    ScansWorld world;
    const auto started = Date::fromUnix(1700000000);
    std::thread([&] {
        world.history.writeScan({message(1)}, started);
        world.history.stampApproved({1}, {1}, started);
    }).join();
    EXPECT_EQ(world.history.readScan(started), std::vector{message(1, true)});
}

}  // namespace
}  // namespace brindlet
