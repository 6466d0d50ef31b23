#pragma once

#include <QList>
#include <QMenu>
#include <functional>
#include <vector>

#include "words/MenuWords.h"

namespace brindlet {

/// The menu in the desktop's tray. Lines that stay are changed where they stand, so that a menu
/// that is open does not flicker and what the pointer is on remains. Main thread.
class TrayMenu {
  public:
    /// `chosen` is called with the command of the line that the person chooses.
    explicit TrayMenu(std::function<void(MenuLine::Command)> chosen);

    void show(const std::vector<MenuLine>& lines);
    QMenu& menu() { return menu_; }

  private:
    void insert(QAction* before, const MenuLine& line);

    std::function<void(MenuLine::Command)> chosen_;
    std::vector<MenuLine> lines_;
    QMenu menu_;
};

}  // namespace brindlet
