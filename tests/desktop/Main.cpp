#include <gtest/gtest.h>

#include <QCoreApplication>
#include <cstdio>

#include "desktop/Desktop.h"

namespace {

/// What a test program ends with to be counted as skipped.
constexpr int skipped = 77;

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    const auto missing = brindlet::desktop::Desktop::missing();
    if (missing.isEmpty()) return RUN_ALL_TESTS();
    std::printf("There is no %s here: see test_packages in tools/packages.sh.\n",
                qPrintable(missing.join(QStringLiteral(", no "))));
    return qEnvironmentVariableIsSet("BRINDLET_EVERY_TEST") ? EXIT_FAILURE : skipped;
}
