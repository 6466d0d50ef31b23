#include "stores/Destinations.h"

#include <gtest/gtest.h>

#include "stores/StoreWorld.h"

namespace brindlet {
namespace {

using Names = std::map<std::string, std::string>;
using Defaults = doubles::MemoryDefaults;

TEST(Destinations, AreStoredWholeAtOnce) {
    StoreWorld world;
    Destinations destinations(world.services());
    EXPECT_TRUE(destinations.byAccount->empty());
    const Signals signals(destinations);
    destinations.set("one", "Junk");
    destinations.set("two", "Trash");
    destinations.set("one", "Bulk");
    const Names expected = {{"one", "Bulk"}, {"two", "Trash"}};
    EXPECT_EQ(*destinations.byAccount, expected);
    EXPECT_EQ(world.defaults.raw.at("junkDestinations"), Defaults::Value(expected));
    EXPECT_EQ(*Destinations(world.services()).byAccount, expected);
    EXPECT_EQ(signals.count(), 3);
}

TEST(Destinations, OneEntryOfAnotherTypeEmptiesTheWhole) {
    for (const Defaults::Value& value :
         {Defaults::Value(Defaults::MixedDictionary{}), Defaults::Value(std::string("Junk")),
          Defaults::Value(Defaults::Data{"{}"})}) {
        StoreWorld world;
        world.defaults.raw["junkDestinations"] = value;
        EXPECT_TRUE(Destinations(world.services()).byAccount->empty());
    }
}

}  // namespace
}  // namespace brindlet
