#include <gtest/gtest.h>

#include <set>

#include "stores/Calibration.h"
#include "stores/History.h"
#include "stores/Interrupted.h"
#include "stores/Rules.h"
#include "stores/Schedule.h"
#include "stores/Seen.h"
#include "stores/StoreWorld.h"

namespace brindlet {
namespace {

/// The example that stands below a heading of docs/formats.md.
std::string example(const std::string& heading) {
    const auto page = files::read(std::string(BRINDLET_FIXTURES) + "/../../docs/formats.md");
    if (!page) return "the page is not there";
    const std::string fence = "```json\n";
    const auto section = page->find("\n## " + heading);
    const auto start = page->find(fence, section);
    if (section == std::string::npos || start == std::string::npos) return "no such section";
    const auto end = page->find("```\n", start + fence.size());
    return page->substr(start + fence.size(), end - start - fence.size());
}

/// The members and values of a JSON text, whatever their order and the blanks between them.
std::multiset<std::string> parts(const std::string& text) {
    std::multiset<std::string> parts;
    std::string part;
    bool quoted = false;
    for (const char c : text) {
        if (c == '"') quoted = !quoted;
        if (!quoted && std::string_view("[]{}, \n").find(c) != std::string_view::npos) {
            if (c == ' ' || c == '\n') continue;
            if (!part.empty()) parts.insert(std::move(part));
            part.clear();
            if (c != ',') parts.insert(std::string(1, c));
        } else {
            part += c;
        }
    }
    return parts;
}

TEST(FormatsPage, ShowsRulesAsTheyAreWritten) {
    StoreWorld world;
    const auto text = example("`rules.json`");
    world.put("rules.json", text);
    Rules rules(world.services());
    ASSERT_EQ(rules.all->size(), 1u);
    ASSERT_EQ(rules.session->size(), 1u);
    rules.enable(rules.all->front());
    EXPECT_EQ(parts(world.text("rules.json")), parts(text));
}

TEST(FormatsPage, ShowsTheCalibrationAsItIsWritten) {
    StoreWorld world;
    const auto text = example("`calibration.json`");
    world.put("calibration.json", text);
    Calibration calibration(world.services());
    calibration.mute(Category::newsletterOrDigest);
    EXPECT_EQ(parts(world.text("calibration.json")), parts(text));
}

TEST(FormatsPage, ShowsTheSeenListAsItIsWritten) {
    StoreWorld world;
    const auto text = example("`seen.json`");
    world.put("seen.json", text);
    Seen seen(world.services());
    EXPECT_EQ(seen.size(), 2u);
    seen.mark(std::vector<std::string>(), false, std::nullopt, std::nullopt);
    EXPECT_EQ(parts(world.text("seen.json")), parts(text));
}

TEST(FormatsPage, ShowsTheHistoryAsItIsWritten) {
    StoreWorld world;
    const auto text = example("`history.json` and `history-deleted.json`");
    world.clock.set({721779200});
    world.put("history.json", text);
    world.put("history-deleted.json", text);
    History history(world.services());
    ASSERT_EQ(history.records->size(), 1u);
    EXPECT_EQ(history.records->front().id(), "1700000000.123456INBOX");
    EXPECT_EQ(history.deleted->size(), 1u);
    history.save();
    EXPECT_EQ(parts(world.text("history.json")), parts(text));
    EXPECT_EQ(parts(world.text("history-deleted.json")), parts(text));
}

TEST(FormatsPage, ShowsAScanAsItIsWritten) {
    StoreWorld world;
    const auto text = example("`scans/<seconds>.json`");
    const History history(world.services());
    history.writeScan({}, Date::fromUnix(1700000000));
    world.put("scans/1700000000.json", text);
    const auto saved = history.readScan(Date::fromUnix(1700000000));
    ASSERT_TRUE(saved);
    history.writeScan(*saved, Date::fromUnix(1700000000));
    EXPECT_EQ(parts(world.text("scans/1700000000.json")), parts(text));
}

TEST(FormatsPage, ShowsAnUnfinishedMoveAsItIsWritten) {
    StoreWorld world;
    const auto text = example("`pending-move.json`");
    world.put("pending-move.json", text);
    Interrupted interrupted(world.services());
    ASSERT_TRUE(*interrupted.pending);
    EXPECT_EQ((*interrupted.pending)->remaining.size(), 2u);
    interrupted.markDone({});
    EXPECT_EQ(parts(world.text("pending-move.json")), parts(text));
}

TEST(FormatsPage, ShowsTheWatchedMailboxesAsTheyAreWritten) {
    StoreWorld world;
    const auto text = example("User defaults");
    world.defaults.setData("auto.watched", text);
    Schedule schedule(world.services());
    ASSERT_EQ(schedule.watched().size(), 1u);
    schedule.setWatched(schedule.watched());
    auto written = *world.defaults.data("auto.watched");
    const auto slash = written.find("\\/");
    ASSERT_NE(slash, std::string::npos);
    EXPECT_EQ(parts(written.erase(slash, 1)), parts(text));
}

}  // namespace
}  // namespace brindlet
