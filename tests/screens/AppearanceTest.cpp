#include "app/Appearance.h"

#include <gtest/gtest.h>

#include <QTest>
#include <optional>

#include "screens/FakePortal.h"
#include "screens/Stage.h"

namespace brindlet::testing {
namespace {

const QString desktop = QStringLiteral("org.freedesktop.appearance");
const QString gnome = QStringLiteral("org.gnome.desktop.interface");
const QString scheme = QStringLiteral("color-scheme");
const QString motion = QStringLiteral("reduced-motion");
const QString animations = QStringLiteral("enable-animations");

/// A desktop with these settings, and a program that follows it.
struct FollowedDesktop {
    explicit FollowedDesktop(FakePortal::Settings settings)
        : portal(bus.connect(), std::move(settings)) {
        appearance.emplace(bus.connect());
        EXPECT_TRUE(QTest::qWaitFor([this] { return portal.questions() == 3; }))
            << "is there a dbus-daemon?";
    }

    /// Until all that the portal has said so far has come: messages keep their order.
    void catchUp() {
        const bool before = appearance->dark();
        portal.set(desktop, scheme, before ? 2U : 1U);
        EXPECT_TRUE(QTest::qWaitFor([&] { return appearance->dark() != before; }));
        portal.set(desktop, scheme, before ? 1U : 2U);
        EXPECT_TRUE(QTest::qWaitFor([&] { return appearance->dark() == before; }));
    }

    PrivateBus bus;
    FakePortal portal;
    std::optional<Appearance> appearance;
};

TEST(Appearance, IsDarkAndInMotionWithoutAPortal) {
    PrivateBus bus;
    const Appearance appearance(bus.connect());
    EXPECT_TRUE(appearance.dark());
    EXPECT_FALSE(appearance.still());
}

TEST(Appearance, IsAskedForAtTheStart) {
    const struct {
        FakePortal::Settings settings;
        bool dark;
        bool still;
    } rows[] = {
        {{{{desktop, scheme}, 0U}}, true, false},
        {{{{desktop, scheme}, 1U}}, true, false},
        {{{{desktop, scheme}, 2U}}, false, false},
        {{{{desktop, motion}, 0U}, {{gnome, animations}, true}}, true, false},
        {{{{desktop, motion}, 1U}}, true, true},
        {{{{gnome, animations}, false}}, true, true},
        {{{{desktop, motion}, 1U}, {{gnome, animations}, true}}, true, true},
        {{{{desktop, scheme}, 2U}, {{desktop, motion}, 0U}, {{gnome, animations}, false}},
         false,
         true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        FollowedDesktop followed(row.settings);
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return followed.appearance->dark() == row.dark &&
                   followed.appearance->still() == row.still;
        }));
        followed.catchUp();
        EXPECT_EQ(followed.appearance->dark(), row.dark);
        EXPECT_EQ(followed.appearance->still(), row.still);
    }
}

TEST(Appearance, AnAnswerDoesNotUndoWhatHasChangedSinceTheQuestion) {
    for (int round = 0; round < 5; ++round) {
        PrivateBus bus;
        FakePortal portal(bus.connect(), {{{desktop, scheme}, 1U}});
        const Appearance appearance(bus.connect());
        // The first chance after the answer is on its way.
        ASSERT_TRUE(QTest::qWaitFor([&] { return portal.questions() > 0; }));
        portal.set(desktop, scheme, 2U);
        portal.set(desktop, motion, 1U);
        ASSERT_TRUE(QTest::qWaitFor([&] { return appearance.still(); }));
        QCoreApplication::processEvents();
        EXPECT_FALSE(appearance.dark());
    }
}

TEST(Appearance, SettingsOfOthersChangeNothing) {
    FollowedDesktop followed({});
    followed.catchUp();
    followed.portal.set(desktop, QStringLiteral("contrast"), 1U);
    followed.portal.set(gnome, scheme, 2U);
    followed.portal.set(gnome, motion, 1U);
    followed.portal.set(desktop, animations, false);
    followed.catchUp();
    EXPECT_TRUE(followed.appearance->dark());
    EXPECT_FALSE(followed.appearance->still());
}

TEST(Appearance, ChangesTheOpenWindow) {
    FollowedDesktop followed({{{desktop, scheme}, 1U}});
    Stage stage;
    stage.main->follow(*followed.appearance);
    const auto ground = [&] {
        stage.settle();
        return stage.window()->grabWindow().pixelColor(4, stage.window()->height() - 4);
    };
    EXPECT_LT(ground().lightness(), 60);
    followed.portal.set(desktop, scheme, 2U);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !stage.model().dark(); }));
    EXPECT_GT(ground().lightness(), 230);
    EXPECT_GT(stage.window()->color().lightness(), 230);
    followed.portal.set(desktop, scheme, 0U);
    ASSERT_TRUE(QTest::qWaitFor([&] { return stage.model().dark(); }));
    EXPECT_LT(ground().lightness(), 60);
}

TEST(Appearance, StopsWhatMovesInTheOpenWindow) {
    FollowedDesktop followed({});
    Stage stage;
    stage.main->follow(*followed.appearance);
    EXPECT_FALSE(stage.model().still());
    followed.portal.set(desktop, motion, 1U);
    EXPECT_TRUE(QTest::qWaitFor([&] { return stage.model().still(); }));
    followed.portal.set(desktop, motion, 0U);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !stage.model().still(); }));
    followed.portal.set(gnome, animations, false);
    EXPECT_TRUE(QTest::qWaitFor([&] { return stage.model().still(); }));
}

}  // namespace
}  // namespace brindlet::testing
