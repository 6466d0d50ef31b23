#include "stores/SeenAhead.h"

#include <gtest/gtest.h>

#include "stores/History.h"
#include "stores/Seen.h"
#include "stores/StoreWorld.h"

namespace brindlet {
namespace {

TEST(SeenAhead, GivesWhatTheStoreWouldHaveRead) {
    StoreWorld world;
    Seen(world.services()).mark({{"a", true}, {"b", false}}, "Home", "INBOX");
    SeenAhead ahead(world.directories);
    const Seen seen(world.services(), &ahead);
    EXPECT_EQ(seen.size(), 2u);
    EXPECT_EQ(seen.entries(), Seen(world.services()).entries());
}

TEST(SeenAhead, WithoutAFileOrWithADamagedOneTheListIsEmptyAndCanBeFilled) {
    StoreWorld world;
    for (const bool damaged : {false, true}) {
        SCOPED_TRACE(damaged);
        if (damaged) world.put("seen.json", R"({"a":)");
        SeenAhead ahead(world.directories);
        Seen seen(world.services(), &ahead);
        EXPECT_EQ(seen.size(), 0u);
        seen.mark({{"c", true}}, "Home", "INBOX");
        EXPECT_TRUE(seen.find("c"));
    }
}

TEST(SeenAhead, IsBroughtUpToDateBeforeAnybodyMeetsIt) {
    StoreWorld world;
    Seen(world.services()).mark({{"a", true}}, std::nullopt, std::nullopt);
    ScanRecord record;
    record.started = world.clock.now();
    record.account = "Home";
    record.folder = "INBOX";
    record.movedTo = "Junk";
    record.moved = {{"a", "", ""}};
    History history(world.services());
    history.records.set({record});

    SeenAhead ahead(world.directories);
    Seen seen(world.services(), &ahead);
    const Signals signals(seen);
    seen.attribute(history);
    EXPECT_EQ(seen.junkCount("Home", "Junk"), 1);
    EXPECT_EQ(signals.count(), 0) << "it was never anything else";
    EXPECT_EQ(Seen(world.services()).junkCount("Home", "Junk"), 1) << "saved";
}

}  // namespace
}  // namespace brindlet
