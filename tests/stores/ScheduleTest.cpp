#include "stores/Schedule.h"

#include <gtest/gtest.h>

#include "stores/StoreWorld.h"

namespace brindlet {
namespace {

using Defaults = doubles::MemoryDefaults;

/// The world's clock stands at Unix second 1,700,000,000.
constexpr double start = 1'700'000'000;

TEST(ScheduleDefaults, StandWhenNothingIsStored) {
    StoreWorld world;
    const Schedule schedule(world.services());
    EXPECT_FALSE(schedule.enabled());
    EXPECT_EQ(schedule.enabledAt(), std::nullopt);
    EXPECT_EQ(schedule.mode(), SortMode::review);
    EXPECT_EQ(schedule.cadence(), Cadence::daily);
    EXPECT_EQ(schedule.lastRun(), std::nullopt);
    EXPECT_TRUE(schedule.pauseOnBattery());
    EXPECT_TRUE(schedule.watched().empty());
    EXPECT_TRUE(world.defaults.raw.empty()) << "loading stores nothing";
}

TEST(ScheduleDefaults, ValuesOfAnotherTypeReadAsTheDefault) {
    const auto world = std::make_unique<StoreWorld>();
    auto& raw = world->defaults.raw;
    raw["auto.enabled"] = std::string("true");
    raw["auto.enabledAt"] = std::string("5");
    raw["auto.mode"] = std::int64_t{1};
    raw["auto.cadence"] = true;
    raw["auto.lastRun"] = Defaults::Data{"5"};
    raw["pauseOnBattery"] = std::string("no");
    raw["auto.watched"] = std::string(R"([{"account":"a","folder":"b"}])");
    const Schedule schedule(world->services());
    EXPECT_FALSE(schedule.enabled());
    EXPECT_EQ(schedule.enabledAt(), std::nullopt);
    EXPECT_EQ(schedule.mode(), SortMode::review);
    EXPECT_EQ(schedule.cadence(), Cadence::daily);
    EXPECT_EQ(schedule.lastRun(), std::nullopt);
    EXPECT_TRUE(schedule.pauseOnBattery());
    EXPECT_TRUE(schedule.watched().empty()) << "it is data that holds JSON, not a text";
}

TEST(ScheduleDefaults, WordsAreReadExactly) {
    const struct {
        const char* mode;
        SortMode expected;
    } modes[] = {{"automatic", SortMode::automatic},
                 {"review", SortMode::review},
                 {"Automatic", SortMode::review},
                 {"", SortMode::review}};
    for (const auto& row : modes) {
        StoreWorld world;
        world.defaults.raw["auto.mode"] = std::string(row.mode);
        EXPECT_EQ(Schedule(world.services()).mode(), row.expected) << row.mode;
    }
    const struct {
        const char* cadence;
        Cadence expected;
    } cadences[] = {{"hourly", Cadence::hourly}, {"every6h", Cadence::every6h},
                    {"daily", Cadence::daily},   {"weekly", Cadence::weekly},
                    {"monthly", Cadence::daily}, {"", Cadence::daily}};
    for (const auto& row : cadences) {
        StoreWorld world;
        world.defaults.raw["auto.cadence"] = std::string(row.cadence);
        EXPECT_EQ(Schedule(world.services()).cadence(), row.expected) << row.cadence;
    }
}

TEST(ScheduleDefaults, ADateOfZeroOrLessIsNone) {
    for (const double seconds : {0.0, -1.0}) {
        StoreWorld world;
        world.defaults.raw["auto.enabledAt"] = seconds;
        world.defaults.raw["auto.lastRun"] = seconds;
        const Schedule schedule(world.services());
        EXPECT_EQ(schedule.enabledAt(), std::nullopt) << seconds;
        EXPECT_EQ(schedule.lastRun(), std::nullopt) << seconds;
    }
    StoreWorld world;
    world.defaults.raw["auto.lastRun"] = std::int64_t{1'700'000'000};
    EXPECT_EQ(Schedule(world.services()).lastRun(), Date::fromUnix(start)) << "a whole number";
}

TEST(ScheduleDefaults, WatchedThatCannotBeDecodedIsEmpty) {
    std::vector<std::string> texts(std::begin(damagedTexts), std::end(damagedTexts));
    for (const char* more :
         {"{}", R"([{"account":"a"}])", R"([{"account":"a","folder":null}])",
          R"([{"account":1,"folder":"b"}])", R"([{"account":"a","folder":"b"},7])"})
        texts.emplace_back(more);
    for (const auto& text : texts) {
        StoreWorld world;
        world.defaults.raw["auto.watched"] = Defaults::Data{text};
        EXPECT_TRUE(Schedule(world.services()).watched().empty()) << text;
    }
    StoreWorld world;
    world.defaults.raw["auto.watched"] =
        Defaults::Data{R"([{"account":"a","folder":"b\/c","more":1}])"};
    EXPECT_EQ(Schedule(world.services()).watched(), (std::vector<WatchedMailbox>{{"a", "b/c"}}));
}

TEST(ScheduleSetters, WriteTheirKeyAtOnce) {
    StoreWorld world;
    auto& raw = world.defaults.raw;
    Schedule schedule(world.services());
    const auto expectRaw = [&](const char* key, const Defaults::Value& value) {
        ASSERT_TRUE(raw.contains(key)) << key;
        EXPECT_EQ(raw.find(key)->second, value) << key;
    };
    schedule.setEnabled(true);
    expectRaw("auto.enabled", true);
    expectRaw("auto.enabledAt", start);
    schedule.setMode(SortMode::automatic);
    expectRaw("auto.mode", std::string("automatic"));
    schedule.setCadence(Cadence::every6h);
    expectRaw("auto.cadence", std::string("every6h"));
    schedule.setLastRun(Date::fromUnix(1'600'000'000.5));
    expectRaw("auto.lastRun", 1'600'000'000.5);
    schedule.setPauseOnBattery(false);
    expectRaw("pauseOnBattery", false);
    schedule.setWatched({{"id", "INBOX"}});
    EXPECT_TRUE(std::holds_alternative<Defaults::Data>(raw.at("auto.watched")));

    const Schedule reloaded(world.services());
    EXPECT_TRUE(reloaded.enabled());
    EXPECT_EQ(reloaded.enabledAt(), schedule.enabledAt());
    EXPECT_EQ(reloaded.mode(), SortMode::automatic);
    EXPECT_EQ(reloaded.cadence(), Cadence::every6h);
    EXPECT_EQ(reloaded.lastRun(), Date::fromUnix(1'600'000'000.5));
    EXPECT_FALSE(reloaded.pauseOnBattery());
    EXPECT_EQ(reloaded.watched(), schedule.watched());

    schedule.setLastRun(std::nullopt);
    EXPECT_FALSE(raw.contains("auto.lastRun"));
    schedule.setEnabled(false);
    expectRaw("auto.enabled", false);
    EXPECT_FALSE(raw.contains("auto.enabledAt"));
}

TEST(ScheduleSetters, AnnounceEqualValuesToo) {
    StoreWorld world;
    Schedule schedule(world.services());
    const Signals signals(schedule);
    schedule.setMode(SortMode::review);
    schedule.setMode(SortMode::review);
    EXPECT_EQ(signals.count(), 2);
}

TEST(ScheduleToggle, AddsAPairAndTakesItOutAgain) {
    StoreWorld world;
    Schedule schedule(world.services());
    schedule.toggle("a", "INBOX");
    schedule.toggle("b", "INBOX");
    schedule.toggle("a", "Other");
    schedule.toggle("a", "INBOX");
    const std::vector<WatchedMailbox> left = {{"b", "INBOX"}, {"a", "Other"}};
    EXPECT_EQ(schedule.watched(), left);
    EXPECT_EQ(Schedule(world.services()).watched(), left);
}

TEST(ScheduleEnabled, TheFirstTurnOnCountsFromThatMoment) {
    StoreWorld world;
    Schedule schedule(world.services());
    schedule.setCadence(Cadence::hourly);
    schedule.setWatched({{"a", "INBOX"}});
    schedule.setEnabled(true);
    EXPECT_EQ(schedule.enabledAt(), Date::fromUnix(start));
    EXPECT_EQ(schedule.nextRun(), Date::fromUnix(start + 3600));
    EXPECT_FALSE(schedule.isDue()) << "never at the instant of turning on";
    world.clock.advance(3599);
    EXPECT_FALSE(schedule.isDue());
    world.clock.advance(1);
    EXPECT_TRUE(schedule.isDue());
}

TEST(ScheduleEnabled, TurningOnTwiceKeepsTheFirstMoment) {
    StoreWorld world;
    Schedule schedule(world.services());
    schedule.setEnabled(true);
    world.clock.advance(60);
    schedule.setEnabled(true);
    EXPECT_EQ(schedule.enabledAt(), Date::fromUnix(start));
}

TEST(ScheduleEnabled, OffAndOnAfterARunGoesOnFromTheRun) {
    StoreWorld world;
    Schedule schedule(world.services());
    schedule.setWatched({{"a", "INBOX"}});
    schedule.setEnabled(true);
    schedule.setLastRun(world.clock.now());
    world.clock.advance(2 * 86400);
    schedule.setEnabled(false);
    EXPECT_EQ(schedule.enabledAt(), std::nullopt);
    EXPECT_EQ(schedule.lastRun(), Date::fromUnix(start));
    EXPECT_FALSE(schedule.isDue());
    schedule.setEnabled(true);
    EXPECT_EQ(schedule.enabledAt(), std::nullopt);
    EXPECT_TRUE(schedule.isDue());
}

TEST(ScheduleEnabled, OneThatIsOnWithoutADateStartsCountingAtTheLaunch) {
    StoreWorld world;
    world.defaults.raw["auto.enabled"] = true;
    const Schedule schedule(world.services());
    EXPECT_EQ(schedule.enabledAt(), world.clock.now());
    EXPECT_EQ(world.defaults.raw.at("auto.enabledAt"), Defaults::Value(start));

    StoreWorld ranBefore;
    ranBefore.defaults.raw["auto.enabled"] = true;
    ranBefore.defaults.raw["auto.lastRun"] = start;
    EXPECT_EQ(Schedule(ranBefore.services()).enabledAt(), std::nullopt);
}

TEST(ScheduleNextRun, NeedsItToBeOnAndAMailbox) {
    StoreWorld world;
    Schedule schedule(world.services());
    EXPECT_EQ(schedule.nextRun(), std::nullopt);
    schedule.setEnabled(true);
    EXPECT_EQ(schedule.nextRun(), std::nullopt);
    schedule.setLastRun(Date::fromUnix(start - 9e6));
    EXPECT_FALSE(schedule.isDue()) << "nothing is watched";
    schedule.setWatched({{"a", "INBOX"}});
    const struct {
        Cadence cadence;
        double seconds;
    } rows[] = {{Cadence::hourly, 3600},
                {Cadence::every6h, 21600},
                {Cadence::daily, 86400},
                {Cadence::weekly, 604800}};
    for (const auto& row : rows) {
        schedule.setCadence(row.cadence);
        EXPECT_EQ(schedule.nextRun(), Date::fromUnix(start - 9e6 + row.seconds))
            << rawValue(row.cadence);
        EXPECT_EQ(schedule.lastRun(), Date::fromUnix(start - 9e6)) << "the base stays";
    }
}

TEST(ScheduleSummary, TellsWhatRunsAndWhen) {
    StoreWorld world;
    world.locale.words = "in 5 hours";
    Schedule schedule(world.services());
    EXPECT_EQ(schedule.summary(), "Off");
    schedule.setEnabled(true);
    EXPECT_EQ(schedule.summary(), "On, but no mailbox picked");
    schedule.toggle("a", "INBOX");
    EXPECT_EQ(schedule.summary(), "1 mailbox · once a day · next in 5 hours");
    schedule.toggle("b", "INBOX");
    schedule.setCadence(Cadence::every6h);
    EXPECT_EQ(schedule.summary(), "2 mailboxes · every 6 hours · next in 5 hours");
    schedule.setCadence(Cadence::hourly);
    EXPECT_EQ(schedule.summary(), "2 mailboxes · every hour · next in 5 hours");
    schedule.setCadence(Cadence::weekly);
    schedule.setWatched(std::vector<WatchedMailbox>(1234, {"a", "INBOX"}));
    EXPECT_EQ(schedule.summary(), "1,234 mailboxes · once a week · next in 5 hours");
}

}  // namespace
}  // namespace brindlet
