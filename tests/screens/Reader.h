#pragma once

#include <gtest/gtest.h>

#include <QAccessible>
#include <QTest>

#include "screens/Stage.h"

namespace brindlet::testing {

/// The first thing of that name in what a screen reader finds; null when there is none. `role`
/// tells apart things that share a name.
inline QAccessibleInterface* named(QAccessibleInterface* root, const QString& name,
                                   QAccessible::Role role = QAccessible::NoRole) {
    if (root->text(QAccessible::Name) == name &&
        (role == QAccessible::NoRole || root->role() == role))
        return root;
    for (int i = 0; i < root->childCount(); ++i)
        if (auto* child = root->child(i))
            if (auto* found = named(child, name, role)) return found;
    return nullptr;
}

/// What a screen reader finds in the window.
struct Reader {
    explicit Reader(Stage& stage)
        : root((QAccessible::setActive(true), stage.settle(),
                QAccessible::queryAccessibleInterface(stage.window()))) {}

    /// Waits for it; null, with a failure, when it does not come.
    QAccessibleInterface* find(const char* name,
                               QAccessible::Role role = QAccessible::NoRole) const {
        // Rows of a list come with a frame.
        QAccessibleInterface* found = nullptr;
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return (found = named(root, QString::fromUtf8(name), role)) != nullptr;
        })) << name;
        return found;
    }
    QAccessibleInterface* root;
};

inline void act(QAccessibleInterface* thing, const QString& action) {
    ASSERT_NE(thing, nullptr);
    ASSERT_NE(thing->actionInterface(), nullptr);
    ASSERT_TRUE(thing->actionInterface()->actionNames().contains(action));
    thing->actionInterface()->doAction(action);
}

inline void press(QAccessibleInterface* thing) {
    act(thing, QAccessibleActionInterface::pressAction());
}

}  // namespace brindlet::testing
