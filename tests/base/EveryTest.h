#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace brindlet {

/// For the main of tests that need what a machine may lack. Where something is missing, says so and
/// ends as a skipped test does; under ./test, where every test must run, as a failed one.
inline int runAllTestsUnless(const std::string& missing) {
    constexpr int skipped = 77;
    if (missing.empty()) return RUN_ALL_TESTS();
    std::printf("%s\n", missing.c_str());
    return std::getenv("BRINDLET_EVERY_TEST") ? EXIT_FAILURE : skipped;
}

}  // namespace brindlet
