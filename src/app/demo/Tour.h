#pragma once

#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "app/demo/DemoWorld.h"
#include "app/demo/Hand.h"
#include "app/demo/Sights.h"
#include "app/demo/Visit.h"
#include "classify/Category.h"

namespace brindlet {
class AppState;
class MainWindow;
}  // namespace brindlet

namespace brindlet::sample {
struct MailSettings;
}

namespace brindlet::demo {

class PassingNotice;

/// Plays one visit to the demo, chapter by chapter, each in a source of its own: clicks and types
/// as a person would, looks whether all came about as it must, and takes pictures. Says on standard
/// output what it does. A picture is named after what it shows, and of the sights that it was taken
/// for each must really stand in the window.
class Tour {
  public:
    Tour(AppState& state, MainWindow& main, DemoWorld& world, PassingNotice& notice,
         QString pictures);

    /// Blocks, running the program meanwhile; false when something was not as it must be. Leaves
    /// the sights that were met beside the pictures, see `metSightsPath`.
    bool run(Visit visit);

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

    /// The visits.
    void firstVisit();
    void visitAgain();
    void visitCorrections();
    void visitEmpty();
    void visitWithoutModel();

    void welcome();
    void rulesWithNone();
    void pick();
    void scan();
    void results();
    void correction();
    void storesStand();
    void junkFolders();
    void oddMessages();
    void failedMoves();
    void move();
    void putBack();
    void secondScan();
    void firstHistory();

    void gmail();
    void chooseGmail();
    /// In the picker: the menu of where junk goes.
    void newDestination();
    void spamDestination();
    /// The entry that ends so.
    void takeDestination(const char* ending);
    void askForGmail();
    void connectGmail();
    /// Types it into the field and has it tested, until there is a word on it.
    void tryAppPassword(const QString& appPassword);
    void scanGmail();
    void fileOnGmail();
    void putBackOnGmail();
    void disconnectGmail();
    void declineGmail();
    void scanGmailAgain();
    std::string appPassword() const;
    /// How long the Gmail server takes for an answer.
    bool setGmailDelay(double seconds) const;

    void welcomeAgain();
    /// The schedule before the accounts were ever asked for.
    void automaticUnread();
    /// A line of the welcome that begins so.
    void followLink(const char* text);
    void history();
    void bin();
    void openRecord();
    void recordLists();
    void senders();
    void rules();
    void ruleRows();
    void forgetAllRules();
    void resume();
    void smallScans();
    void junkFolder();
    void stoppedScan();
    void vanishedFolder();

    void offers();
    void lateOffers();
    void busyRule();
    /// What stands of these has its picture, and is not looked for again.
    void catchOffers(std::vector<const char*>& wanted);

    void permission();
    void noAccounts();

    /// The address of the fullest account.
    static constexpr const char* fernhill = "robin.ashdown@fernhill.example";

    /// In the picker: an account by its address, and a folder of it.
    void choose(const char* account, const char* folder);
    /// The last choices of how far back and how many.
    void takeEverything();
    /// Scans what is chosen, and waits for what it found.
    void sort();
    /// With the plug pulled, for a picture of the scan.
    void sortWithPause(const QString& name, const std::vector<const char*>& sights);
    void moveAll();
    /// From the results to the picker.
    void scanAnother();
    void glimpseOfChecking();
    /// The help of what reads so, from the pointer's rest on it.
    void pointAt(const char* words, const QString& name, const std::vector<const char*>& sights);
    void openCategory(Category category);
    void filterBy(const QString& words);
    /// Whether the mail program's files are out of reach.
    bool hideMail(bool hidden) const;
    /// The mail program's next scripts find it changed.
    bool changeMail(const std::function<void(sample::MailSettings&)>& change) const;
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
    /// When nothing moves any more. What does not stand in sight is scrolled to, and has a picture
    /// of its own.
    void picture(const QString& name, const std::vector<const char*>& sights = {});
    /// Of what stands for a moment only: as soon as it is there, and without waiting for anything
    /// else to come to rest.
    void glimpse(const QString& name, const std::vector<const char*>& sights);
    bool stands(const Sight& sight) const;
    void meet(const char* sight, const QString& name);
    void miss(const Sight& sight);
    QString pathOf(const QString& name) const;
    void saveMet() const;

    AppState& state_;
    MainWindow& main_;
    DemoWorld& world_;
    PassingNotice& notice_;
    Hand hand_;
    QString pictures_;
    Visit visit_ = Visit::first;
    QStringList taken_;
    /// Each with its picture.
    std::vector<std::pair<QString, QString>> met_;
    bool ok_ = true;
    bool missed_ = false;
};

}  // namespace brindlet::demo
