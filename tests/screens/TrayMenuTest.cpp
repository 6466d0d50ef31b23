#include "app/TrayMenu.h"

#include <gtest/gtest.h>

#include <QAction>

namespace brindlet {
namespace {

using Command = MenuLine::Command;

const MenuLine divider;
const MenuLine stop{"Stop", Command::stop};
const MenuLine open{"Open Brindlet", Command::open};
const MenuLine quit{"Quit", Command::quit};

MenuLine words(const char* text) {
    return {text, std::nullopt};
}

std::vector<std::string> texts(TrayMenu& menu) {
    std::vector<std::string> all;
    for (const auto* action : menu.menu().actions())
        all.push_back(action->isSeparator() ? "---" : action->text().toStdString());
    return all;
}

using Texts = std::vector<std::string>;

TEST(TrayMenu, ShowsWordsDimmedAndCommandsThatObey) {
    std::vector<Command> chosen;
    TrayMenu menu([&](Command command) { chosen.push_back(command); });
    menu.show({words("One a second"), divider, stop, divider, open, quit});
    EXPECT_EQ(texts(menu), (Texts{"One a second", "---", "Stop", "---", "Open Brindlet", "Quit"}));
    const auto actions = menu.menu().actions();
    EXPECT_FALSE(actions[0]->isEnabled());
    for (const int command : {2, 4, 5}) actions[command]->trigger();
    EXPECT_EQ(chosen, (std::vector{Command::stop, Command::open, Command::quit}));
}

TEST(TrayMenu, ChangesWordsWhereTheyStand) {
    TrayMenu menu([](Command) {});
    menu.show({words("1 / 9"), words("1.0 a second"), divider, stop, divider, open, quit});
    const auto before = menu.menu().actions();
    menu.show({words("2 / 9"), words("1.5 a second"), divider, stop, divider, open, quit});
    EXPECT_EQ(menu.menu().actions(), before);
    EXPECT_EQ(texts(menu),
              (Texts{"2 / 9", "1.5 a second", "---", "Stop", "---", "Open Brindlet", "Quit"}));
}

TEST(TrayMenu, ALineThatComesOrGoesLeavesTheOthers) {
    TrayMenu menu([](Command) {});
    menu.show({words("1 / 9"), words("1.0 a second"), divider, stop, divider, open, quit});
    const auto before = menu.menu().actions();
    menu.show({words("1 / 9"), words("1.0 a second"), words("a minute left"), divider, stop,
               divider, open, quit});
    auto after = menu.menu().actions();
    ASSERT_EQ(after.size(), 8);
    after.removeAt(2);
    EXPECT_EQ(after, before);
    menu.show({words("Nothing running"), words("Off"), divider, open, quit});
    EXPECT_EQ(texts(menu), (Texts{"Nothing running", "Off", "---", "Open Brindlet", "Quit"}));
    const auto last = menu.menu().actions();
    EXPECT_EQ(last[0], before[0]);
    EXPECT_EQ(last[1], before[1]);
    EXPECT_EQ(last.mid(2), before.mid(4));
}

TEST(TrayMenu, NeverShowsAnythingButItsLines) {
    const std::vector<std::vector<MenuLine>> states{
        {words("a"), words("b"), divider, open, quit},
        {words("a"), words("b"), words("c"), divider, stop, divider, open, quit},
        {words("a"), words("b"), divider, stop, divider, open, quit},
        {words("a"), divider, open, quit},
        {},
    };
    for (const auto& from : states)
        for (const auto& to : states) {
            TrayMenu menu([](Command) {});
            menu.show(from);
            menu.show(to);
            Texts expected;
            for (const auto& line : to) expected.push_back(line.isDivider() ? "---" : line.text);
            EXPECT_EQ(texts(menu), expected) << from.size() << " to " << to.size();
        }
}

}  // namespace
}  // namespace brindlet
