#include <gtest/gtest.h>

#include "desktop/Roles.h"
#include "desktop/Visit.h"

// Real key events, from the display to the window: what the window does with them is tested beside
// it; here it is that they arrive, and that a screen reader can follow.

namespace brindlet::desktop {
namespace {

constexpr int space = 0x20;
constexpr int tab = 0xff09;
constexpr int enter = 0xff0d;
constexpr int left = 0xff51;
constexpr int right = 0xff53;
constexpr int down = 0xff54;

/// The innermost thing that has the keyboard.
const Thing* focusedIn(const Thing& whole) {
    const Thing* innermost = nullptr;
    for (const auto* thing : whole.all())
        if (thing->is(Thing::focused)) innermost = thing;
    return innermost;
}

class KeyboardVisit : public testing::Test {
  protected:
    const ScreenReader& reader() const { return visit.reader(); }

    /// Waits until the keyboard is where the condition says.
    Thing awaitFocus(const char* where, const ScreenReader::Condition& condition) const {
        const auto whole = reader().awaitAny(
            QStringLiteral("the keyboard on ") + QString::fromUtf8(where), [&](const Thing& thing) {
                const auto* focused = focusedIn(thing);
                return thing.role == role::application && focused && condition(*focused);
            });
        const auto* focused = focusedIn(whole);
        return focused ? *focused : Thing();
    }

    /// Strikes Tab until the keyboard is there.
    void tabTo(const char* where, const ScreenReader::Condition& condition) const {
        constexpr int most = 20;
        // A screen that has just come may have the keyboard on nothing yet.
        auto whole = reader().everything();
        for (int i = 0; i < most && !HasFailure(); ++i) {
            const auto* focused = focusedIn(whole);
            if (focused && condition(*focused)) return;
            const auto before = focused ? focused->path : QString();
            reader().strike(tab);
            awaitFocus("something else", [&](const Thing& thing) { return thing.path != before; });
            whole = reader().everything();
        }
        awaitFocus(where, condition);
    }

    Visit visit;
};

bool isRow(const Thing& thing) {
    return thing.role == role::checkBox && thing.name.contains(u'@');
}

TEST_F(KeyboardVisit, WalksTicksAndOpensSenders) {
    awaitFocus("Start", [](const Thing& thing) { return thing.name == QStringLiteral("Start"); });
    reader().strike(enter);
    const auto inbox = QStringLiteral("INBOX");
    awaitFocus("the inbox", [&](const Thing& thing) { return thing.name == inbox; });
    reader().strike(space);
    reader().await(role::radioButton, inbox,
                   [](const Thing& thing) { return thing.is(Thing::checked); });

    visit.openAds();
    reader().press(role::button, QStringLiteral("By sender"));
    tabTo("the first sender", isRow);
    reader().strike(down);
    const auto senders =
        reader().await(role::list, QStringLiteral("Messages"), [](const Thing& thing) {
            return thing.children.size() > 1 && thing.children[1].is(Thing::focused);
        });
    ASSERT_GT(senders.children.size(), 1u);
    const auto& second = senders.children[1];

    reader().strike(space);
    reader().await(second.role, second.name, [&](const Thing& thing) {
        return thing.is(Thing::checked) != second.is(Thing::checked);
    });
    const auto ends = [](const char* word) {
        return
            [=](const Thing& thing) { return thing.description.endsWith(QString::fromUtf8(word)); };
    };
    reader().strike(right);
    reader().await(second.role, second.name, ends("Expanded"));
    reader().strike(left);
    reader().await(second.role, second.name, ends("Collapsed"));
}

}  // namespace
}  // namespace brindlet::desktop
