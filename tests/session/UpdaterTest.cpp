#include "session/Updater.h"

#include <gtest/gtest.h>

#include "doubles/RecordingUpdates.h"

namespace brindlet {
namespace {

using doubles::RecordingUpdates;

TEST(Updater, KnowsFromTheBeginningWhetherItCanCheck) {
    for (const bool can : {false, true}) {
        RecordingUpdates updates;
        updates.canCheck = can;
        const Updater updater(updates);
        EXPECT_EQ(*updater.canCheck, can);
        EXPECT_EQ(*updater.waiting, std::nullopt);
        updates.listener.canCheckChanged(!can);
        EXPECT_EQ(*updater.canCheck, !can);
    }
}

TEST(Updater, ChecksOnlyWhenAskedAndOnlyWhileItCan) {
    RecordingUpdates updates;
    Updater updater(updates);
    updater.check();
    EXPECT_EQ(updates.checks, 0);
    updates.listener.canCheckChanged(true);
    EXPECT_EQ(updates.checks, 0);
    updater.check();
    EXPECT_EQ(updates.checks, 1);
}

TEST(Updater, AFoundVersionWaitsUntilItIsInstalledOrGone) {
    RecordingUpdates updates;
    const Updater updater(updates);
    updates.listener.found("1.2 (34)");
    EXPECT_EQ(*updater.waiting, "1.2 (34)");
    updates.listener.notFound();
    EXPECT_EQ(*updater.waiting, std::nullopt);
    updates.listener.found("1.3");
    updates.listener.willInstall();
    EXPECT_EQ(*updater.waiting, std::nullopt);
}

}  // namespace
}  // namespace brindlet
