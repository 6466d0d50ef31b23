#pragma once

#include <QString>
#include <functional>

#include "app/demo/DemoWorld.h"
#include "app/demo/Hand.h"

namespace brindlet {
class AppState;
class MainWindow;
}  // namespace brindlet

namespace brindlet::demo {

/// Plays a first visit: from the welcome to the results, a correction that is taken back, then a
/// second scan, which must leave out what the first one decided. Says on standard output what it
/// does, and puts a picture of each screen into a folder.
class Tour {
  public:
    Tour(AppState& state, MainWindow& main, DemoWorld& world, QString pictures);

    /// Blocks, running the program meanwhile; false when something was not as it must be.
    bool run();

  private:
    void welcome();
    void pick();
    void scan();
    void results();
    void correction();
    void storesStand();
    void secondScan();

    /// Says it and does it; the first failure is told, and what follows is left out.
    void step(const QString& what, const std::function<bool()>& deed);
    void picture(const QString& name);

    AppState& state_;
    MainWindow& main_;
    DemoWorld& world_;
    Hand hand_;
    QString pictures_;
    int taken_ = 0;
    bool ok_ = true;
};

}  // namespace brindlet::demo
