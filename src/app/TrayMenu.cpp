#include "app/TrayMenu.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "screens/QtText.h"

namespace brindlet {
namespace {

/// Whether one can become the other by new words.
bool isAlike(const MenuLine& one, const MenuLine& other) {
    return one.isDivider() == other.isDivider() && one.command == other.command;
}

}  // namespace

TrayMenu::TrayMenu(std::function<void(MenuLine::Command)> chosen) : chosen_(std::move(chosen)) {}

void TrayMenu::show(const std::vector<MenuLine>& lines) {
    // Status comes and goes in the middle: what is alike before it and behind it stays.
    const auto head = std::ranges::mismatch(lines_, lines, isAlike);
    const auto kept = std::distance(lines_.begin(), head.in1);
    auto oldEnd = lines_.end();
    auto newEnd = lines.end();
    while (oldEnd != head.in1 && newEnd != head.in2 && isAlike(*(oldEnd - 1), *(newEnd - 1))) {
        --oldEnd;
        --newEnd;
    }
    auto actions = menu_.actions();
    for (auto gone = kept; gone < oldEnd - lines_.begin(); ++gone) delete actions.takeAt(kept);
    QAction* const before = actions.value(kept);
    for (auto line = head.in2; line != newEnd; ++line) insert(before, *line);
    actions = menu_.actions();
    for (qsizetype i = 0; i < actions.size(); ++i)
        actions[i]->setText(screens::qtText(lines[static_cast<std::size_t>(i)].text));
    lines_ = lines;
}

void TrayMenu::insert(QAction* before, const MenuLine& line) {
    auto* action = new QAction(screens::qtText(line.text), &menu_);
    action->setSeparator(line.isDivider());
    action->setEnabled(line.command.has_value());
    if (line.command)
        QObject::connect(action, &QAction::triggered, action,
                         [this, command = *line.command] { chosen_(command); });
    menu_.insertAction(before, action);
}

}  // namespace brindlet
