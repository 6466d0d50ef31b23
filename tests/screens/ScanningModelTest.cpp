#include "screens/scanning/ScanningModel.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "screens/AppModel.h"
#include "screens/Stage.h"

namespace brindlet::testing {
namespace {

using screens::LinesModel;
using screens::ScanningModel;

struct Scanning {
    Scanning() {
        scenes::scanning(*state);
        model.refresh();
    }

    ~Scanning() { world.retire(); }

    doubles::World& world = doubles::World::lasting();
    std::shared_ptr<AppState> state = AppState::make(world.services(), 1);
    ScanningModel model{*state};
};

TEST(ScanningModel, SaysHowFarItIs) {
    Scanning scanning;
    EXPECT_DOUBLE_EQ(scanning.model.share(), 0.5);
    EXPECT_EQ(scanning.model.percent(), QStringLiteral("50%"));
    EXPECT_EQ(scanning.model.count(), QStringLiteral("811 / 1,622"));
    EXPECT_EQ(scanning.model.place(), QStringLiteral("ada@example.org \u00b7 INBOX"));
}

TEST(ScanningModel, AScanOfNothingShowsNoRing) {
    Scanning scanning;
    scanning.state->done.set(0);
    scanning.state->total.set(0);
    scanning.model.refresh();
    EXPECT_DOUBLE_EQ(scanning.model.share(), 0);
}

TEST(ScanningModel, AScanThatHasBarelyBegunShowsASliver) {
    Scanning scanning;
    for (const int done : {0, 1, 8}) {
        scanning.state->done.set(done);
        scanning.model.refresh();
        EXPECT_DOUBLE_EQ(scanning.model.share(), 0.005) << done;
    }
}

TEST(ScanningModel, OnlyTheStatThatDiffersIsTold) {
    Scanning scanning;
    auto& stats = *scanning.model.stats();
    const QAbstractItemModelTester tester(&stats,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    ASSERT_EQ(stats.rowCount(), 5);
    EXPECT_EQ(stats.index(0).data(LinesModel::LeadRole), QStringLiteral("41.7/s"));
    EXPECT_EQ(stats.index(0).data(LinesModel::TextRole), QStringLiteral("speed"));
    const QSignalSpy changes(&stats, &QAbstractItemModel::dataChanged);
    scanning.state->rate.set(50.0);
    scanning.model.refresh();
    EXPECT_EQ(changes.count(), 1);
    scanning.state->rate.set(0);
    scanning.model.refresh();
    EXPECT_EQ(stats.rowCount(), 4) << "no speed, no stat";
}

TEST(ScanningModel, TheBatterySwitchWritesTheOpposite) {
    Scanning scanning;
    scanning.model.setKeepsScanning(true);
    EXPECT_FALSE(scanning.state->schedule.pauseOnBattery());
    scanning.model.setKeepsScanning(false);
    EXPECT_TRUE(scanning.state->schedule.pauseOnBattery());
}

TEST(ScanningModel, StopEndsTheScan) {
    Scanning scanning;
    scanning.model.stop();
    EXPECT_FALSE(*scanning.state->running);
    EXPECT_EQ(*scanning.state->screen, AppState::Screen::results);
}

TEST(AppModel, ANewScreenIsToldLastWithItsWordsFinished) {
    doubles::World world;
    const auto state = AppState::make(world.services(), 1);
    screens::AppModel model(*state);
    QString titleAtBirth;
    QObject::connect(&model, &screens::AppModel::screenChanged, &model,
                     [&] { titleAtBirth = model.results()->title(); });
    scenes::results(*state);
    QCoreApplication::processEvents();
    EXPECT_EQ(model.screen(), screens::AppModel::Results);
    EXPECT_EQ(titleAtBirth, QStringLiteral("77 look like junk"));
}

TEST(AppModel, AScreenThatIsNotOnShowIsLeftAlone) {
    doubles::World world;
    const auto state = AppState::make(world.services(), 1);
    screens::AppModel model(*state);
    scenes::scanning(*state);
    QCoreApplication::processEvents();
    EXPECT_EQ(model.results()->categories()->rowCount(), 0);
    EXPECT_EQ(model.scanning()->percent(), QStringLiteral("50%"));
}

}  // namespace
}  // namespace brindlet::testing
