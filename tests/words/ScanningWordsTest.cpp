#include "words/ScanningWords.h"

#include <gtest/gtest.h>

#include <cmath>

#include "session/ScanStages.h"
#include "words/Session.h"

namespace brindlet {
namespace {

using Stats = std::vector<Stat>;

TEST(ScanningWords, WithNothingToDoTheRingIsEmpty) {
    Session session;
    const auto words = scanningWords(session);
    EXPECT_EQ(words.share, 0);
    EXPECT_EQ(words.percent, "0%");
    EXPECT_EQ(words.count, "0 / 0");
}

TEST(ScanningWords, WholePercentNeverRunsAhead) {
    const struct {
        std::int64_t done;
        std::int64_t total;
        const char* percent;
        const char* count;
    } rows[] = {
        {0, 1234, "0%", "0 / 1,234"},
        {29, 100, "29%", "29 / 100"},
        {38000, 50000, "76%", "38,000 / 50,000"},
        {999, 1000, "99%", "999 / 1,000"},
        {1000, 1000, "100%", "1,000 / 1,000"},
    };
    Session session;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.count);
        session->done.set(row.done);
        session->total.set(row.total);
        const auto words = scanningWords(session);
        EXPECT_EQ(words.percent, row.percent);
        EXPECT_EQ(words.count, row.count);
        EXPECT_DOUBLE_EQ(words.share,
                         static_cast<double>(row.done) / static_cast<double>(row.total));
    }
}

TEST(ScanningWords, PlaceJoinsWhatIsKnown) {
    Session session;
    EXPECT_EQ(scanningWords(session).place, "");
    session.select(Session::folder(MailFolder::Role::inbox, "INBOX"));
    EXPECT_EQ(scanningWords(session).place, "ann@x.com · INBOX");
    session->folder.set(std::nullopt);
    EXPECT_EQ(scanningWords(session).place, "ann@x.com");
    session.select(Session::folder(MailFolder::Role::inbox, "INBOX"));
    session->account.set(std::nullopt);
    EXPECT_EQ(scanningWords(session).place, "INBOX");
}

TEST(ScanningWords, TimeLeftIsCutWhereTheMenusIsRounded) {
    const struct {
        std::optional<double> seconds;
        std::optional<std::string> words;
    } rows[] = {
        {std::nullopt, std::nullopt},
        {NAN, std::nullopt},
        {-5, std::nullopt},
        {1, std::nullopt},
        {1.01, "1s"},
        {89, "89s"},
        {89.99, "89s"},
        {90, "1 min"},
        {119.9, "1 min"},
        {120, "2 min"},
        {5399, "89 min"},
        {5400, "1.5 hr"},
        {7200, "2.0 hr"},
        {7200000, "2000.0 hr"},
    };
    const doubles::FixedLocale locale;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.seconds.value_or(-1));
        EXPECT_EQ(remainingWords(row.seconds, locale), row.words);
    }
}

TEST(ScanningWords, StatsStandInOrder) {
    Session session;
    session->running.set(true);
    session->rate.set(1041.66);
    session->eta.set(28.4);
    session->skipped.set(1212);
    session.publish(1500, 3, 2000);
    EXPECT_EQ(scanningWords(session).stats, (Stats{{"1041.7/s", "speed"},
                                                   {"28s", "remaining"},
                                                   {"1,212", "skipped"},
                                                   {"2,000", "protected"},
                                                   {"1,500", "junk so far"}}));
}

TEST(ScanningWords, StatsWithoutAValueAreLeftOut) {
    Session session;
    EXPECT_TRUE(scanningWords(session).stats.empty());
    session->running.set(true);
    EXPECT_EQ(scanningWords(session).stats, (Stats{{"0", "junk so far"}}));
    session->rate.set(-1);
    session->eta.set(0.5);
    session.publish(0, 4);
    EXPECT_EQ(scanningWords(session).stats, (Stats{{"0", "junk so far"}}));
}

TEST(ScanningWords, TheBatterySwitchStandsOnlyWhilePaused) {
    Session session;
    session->running.set(true);
    session->stage.set(stages::sorting);
    EXPECT_FALSE(scanningWords(session).pausedOnBattery);
    session->stage.set(stages::pausedOnBattery);
    const auto words = scanningWords(session);
    EXPECT_TRUE(words.pausedOnBattery);
    EXPECT_EQ(words.stage,
              "Paused - on battery. Plug in to continue, or allow battery scanning below.");
    // A stop leaves the stage's words until the scan notices.
    session->running.set(false);
    EXPECT_FALSE(scanningWords(session).pausedOnBattery);
}

TEST(ScanningWords, TheBatterySwitchShowsTheOppositeOfPausing) {
    Session session;
    session->schedule.setPauseOnBattery(true);
    EXPECT_FALSE(scanningWords(session).keepsScanning);
    session->schedule.setPauseOnBattery(false);
    EXPECT_TRUE(scanningWords(session).keepsScanning);
}

}  // namespace
}  // namespace brindlet
