#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

#include "keyring/SafeWorld.h"

namespace {

/// What a test program ends with to be counted as skipped.
constexpr int skipped = 77;

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const auto missing = brindlet::SafeWorld::missing();
    if (missing.empty()) return RUN_ALL_TESTS();
    std::printf("There is no %s here: see test_packages in tools/packages.sh.\n", missing.c_str());
    return std::getenv("BRINDLET_EVERY_TEST") ? EXIT_FAILURE : skipped;
}
