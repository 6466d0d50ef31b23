#include "screens/Coalescer.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include "base/Observable.h"

namespace brindlet::screens {
namespace {

struct Session : Observable {
    Published<int> field{*this, 0};
};

TEST(Coalescer, RefreshesOnceForAllSignalsOfATurn) {
    Session session;
    const Coalescer coalescer(session, [] {});
    for (int i = 0; i < 20; ++i) session.field.set(i);
    EXPECT_EQ(coalescer.refreshes(), 0U) << "nothing may be read before the change";
    QCoreApplication::processEvents();
    EXPECT_EQ(coalescer.refreshes(), 1U);
    QCoreApplication::processEvents();
    EXPECT_EQ(coalescer.refreshes(), 1U);
}

TEST(Coalescer, TheRefreshSeesTheChangedValue) {
    Session session;
    int seen = 0;
    const Coalescer coalescer(session, [&] { seen = *session.field; });
    session.field.set(1);
    session.field.set(2);
    QCoreApplication::processEvents();
    EXPECT_EQ(seen, 2);
}

TEST(Coalescer, ARefreshThatChangesTheSessionGetsAnotherTurn) {
    Session session;
    int depth = 0;
    int deepest = 0;
    const Coalescer coalescer(session, [&] {
        deepest = std::max(deepest, ++depth);
        if (*session.field < 3) session.field.mutate([](int& value) { ++value; });
        --depth;
    });
    session.field.set(1);
    for (int turn = 0; turn < 4; ++turn) QCoreApplication::processEvents();
    EXPECT_EQ(*session.field, 3);
    EXPECT_EQ(deepest, 1);
    EXPECT_EQ(coalescer.refreshes(), 3U);
}

TEST(Coalescer, ARefreshThatWasDueDoesNotOutliveIt) {
    Session session;
    int refreshes = 0;
    {
        const Coalescer coalescer(session, [&] { ++refreshes; });
        session.field.set(1);
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(refreshes, 0);
}

}  // namespace
}  // namespace brindlet::screens
