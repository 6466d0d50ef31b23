#include "session/AddressSet.h"

#include <gtest/gtest.h>

#include <random>

namespace brindlet {
namespace {

TEST(AddressSet, FindsAnAddressAnywhereInTheText) {
    const AddressSet set({"bob@x.com", "ann@y.org"});
    EXPECT_TRUE(set.occursIn("bob smith <bob@x.com>"));
    EXPECT_TRUE(set.occursIn("ann@y.org"));
    EXPECT_FALSE(set.occursIn("bob@y.org"));
    EXPECT_FALSE(set.occursIn(""));
}

// The test is on substrings, so a longer address that ends or begins alike is covered too.
TEST(AddressSet, CoversLongerAddressesThatContainOne) {
    const AddressSet set({"bob@x.com"});
    EXPECT_TRUE(set.occursIn("notbob@x.com"));
    EXPECT_TRUE(set.occursIn("bob@x.company"));
}

TEST(AddressSet, EmptyAddressesNeverMatch) {
    const AddressSet set({"", ""});
    EXPECT_EQ(set.size(), 0u);
    EXPECT_FALSE(set.occursIn("anyone@example.org"));
}

TEST(AddressSet, OddAddressesAreLookedForPlainly) {
    EXPECT_TRUE(AddressSet({"@x.com"}).occursIn("a@x.com"));
    EXPECT_TRUE(AddressSet({"bob@"}).occursIn("bob@anything"));
    EXPECT_TRUE(AddressSet({"@"}).occursIn("a@b"));
    EXPECT_TRUE(AddressSet({"no-at"}).occursIn("has no-at sign"));
    EXPECT_TRUE(AddressSet({"a@b@c"}).occursIn("x a@b@c y"));
}

TEST(AddressSet, AgreesWithAPlainSearch) {
    std::mt19937 random(11);
    const auto text = [&](int most) {
        std::string out;
        for (auto n = random() % static_cast<unsigned>(most); n > 0; --n)
            out += "ab@."[random() % 4];
        return out;
    };
    for (int round = 0; round < 20000; ++round) {
        std::vector<std::string> addresses;
        for (int i = 0; i < 4; ++i) addresses.push_back(text(6));
        const std::string haystack = text(14);
        bool plainly = false;
        for (const auto& address : addresses)
            plainly |= !address.empty() && haystack.find(address) != std::string::npos;
        ASSERT_EQ(AddressSet(addresses).occursIn(haystack), plainly)
            << haystack << " / " << addresses[0] << " " << addresses[1] << " " << addresses[2]
            << " " << addresses[3];
    }
}

}  // namespace
}  // namespace brindlet
