#pragma once

#include <QString>
#include <cstdint>
#include <functional>
#include <string>

#include "app/demo/DemoWorld.h"
#include "app/demo/Hand.h"

namespace brindlet {
class AppState;
class MainWindow;
}  // namespace brindlet

namespace brindlet::demo {

/// Plays a first visit: from the welcome to the results, a correction that is taken back, a move
/// and a message that is put back, then a second scan, which must leave out what the first one
/// decided; and a visit to the Gmail account, which is connected, filed on and disconnected; and at
/// last the schedule, which is turned on and run at once. Says on standard output what it does, and
/// puts a picture of each screen into a folder.
class Tour {
  public:
    Tour(AppState& state, MainWindow& main, DemoWorld& world, QString pictures);

    /// Blocks, running the program meanwhile; false when something was not as it must be.
    bool run();

  private:
    /// Message files in the folder on show and in the one that its junk goes to.
    struct FileCounts {
        std::int64_t source = 0;
        std::int64_t destination = 0;
    };

    /// Messages of the Gmail account, as its server lists them.
    struct LabelCounts {
        std::int64_t inbox = 0;
        std::int64_t destination = 0;
        /// No label that comes or goes may change these.
        std::int64_t all = 0;
        std::int64_t files = 0;
    };

    void welcome();
    void pick();
    void scan();
    void results();
    void correction();
    void storesStand();
    void move();
    void putBack();
    void secondScan();

    void gmail();
    void chooseGmail();
    void askForGmail();
    void connectGmail();
    /// Types it into the field and has it tested, until there is a word on it.
    void tryAppPassword(const QString& appPassword);
    void scanGmail();
    void fileOnGmail();
    void putBackOnGmail();
    void disconnectGmail();
    std::string appPassword() const;
    /// How long the Gmail server takes for an answer.
    bool setGmailDelay(double seconds) const;

    /// Needs a screen from which Escape leads to the results, and a first account with an inbox.
    void automatic();
    void openAutomatic();
    void setSchedule();
    void losePickedMailbox();
    void runNow();
    void automaticFromWelcome();

    FileCounts countFiles() const;
    LabelCounts countLabels() const;
    /// What is ticked and can be moved.
    std::int64_t movableTicks() const;
    void tickFirstMoved();
    /// The move that runs comes to its end, and has taken so many messages out of the folder on
    /// show; fewer than none were put back into it.
    void expectMoved(const FileCounts& before, std::int64_t count);

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
