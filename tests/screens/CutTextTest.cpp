#include <gtest/gtest.h>

#include <QTest>
#include <string>

#include "screens/Stage.h"

namespace brindlet::testing {
namespace {

constexpr auto longName = "Projects/Harbour House with quite a long name of its own";

/// Lets the pointer rest on the words themselves.
void hoverText(const Stage& stage, const QString& text) {
    // Layout comes with a frame.
    (void)stage.window()->grabWindow();
    for (auto* item : stage.items())
        if (item->inherits("QQuickText") && item->property("text") == text) {
            QTest::mouseMove(stage.window(),
                             item->mapToScene(QPointF(20, item->height() / 2)).toPoint());
            return stage.settle();
        }
    ADD_FAILURE() << text.toStdString() << " does not stand";
}

TEST(CutText, TellsAllOfItselfWhereThePointerRests) {
    const Stage stage(scenes::mailboxes);
    stage.window()->resize(stage.window()->minimumSize());
    stage.settle();
    hoverText(stage, QString::fromUtf8(longName));
    EXPECT_NE(stage.await(QStringLiteral("helpTip")), nullptr);
    EXPECT_EQ(stage.find(QStringLiteral("helpTip"))->property("text").toString().toStdString(),
              longName);
    hoverText(stage, QStringLiteral("Receipts"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !stage.find(QStringLiteral("helpTip")); }))
        << "it takes it back, and a whole one says nothing again";
}

}  // namespace
}  // namespace brindlet::testing
