#include <QQuickItem>
#include <algorithm>
#include <cstdio>
#include <filesystem>

#include "app/MainWindow.h"
#include "app/demo/Tour.h"
#include "sample/MailIndex.h"
#include "sample/MailLayout.h"
#include "session/AppState.h"

namespace brindlet::demo {
namespace {

std::string dataRoot(const DemoWorld& world) {
    return world.directories.home() + '/' + std::string(sample::dataRootInHome) + '/';
}

}  // namespace

void Tour::scanAnother() {
    step(QStringLiteral("click Scan another"), [this] {
        return hand_.click(QStringLiteral("scanAnother")) && hand_.await([this] {
            return hand_.find(QStringLiteral("folders")) && !*state_.refreshingFolders;
        });
    });
}

void Tour::takeEverything() {
    const auto lastOf = [this](const char* menu) {
        if (!hand_.tabTo(QString::fromUtf8(menu))) return false;
        hand_.press(Qt::Key_Space);
        for (int i = 0; i < 4; ++i) hand_.press(Qt::Key_Down);
        hand_.press(Qt::Key_Return);
        return hand_.rest();
    };
    step(QStringLiteral("take all there is, however old"), [&] {
        return lastOf("reach") && lastOf("limit") && *state_.reach == Reach::everything &&
               *state_.limit == 0;
    });
}

void Tour::choose(const char* account, const char* folder) {
    step(QStringLiteral("choose %1 of %2")
             .arg(QString::fromUtf8(folder), QString::fromUtf8(account)),
         [&] {
             const auto& accounts = *state_.accounts;
             const auto wanted = std::ranges::find(accounts, account, &MailAccount::address);
             if (wanted == accounts.end() || !*state_.account) return false;
             const auto now = std::ranges::find(accounts, (*state_.account)->id, &MailAccount::id);
             if (wanted != now) {
                 if (!hand_.tabTo(QStringLiteral("accounts"))) return false;
                 hand_.press(Qt::Key_Space);
                 for (auto i = now; i < wanted; ++i) hand_.press(Qt::Key_Down);
                 for (auto i = wanted; i < now; ++i) hand_.press(Qt::Key_Up);
                 hand_.press(Qt::Key_Return);
                 if (!hand_.await([&] { return (*state_.account)->address == account; }))
                     return false;
             }
             const auto folders = (*state_.account)->folders;
             const auto row = std::ranges::find(folders, folder, &MailFolder::name);
             if (row == folders.end()) return false;
             const auto counted = state_.inReach.revision();
             return hand_.clickRow(QStringLiteral("folders"),
                                   static_cast<int>(row - folders.begin())) &&
                    hand_.await([&] {
                        return *state_.folder && (*state_.folder)->name == folder &&
                               state_.inReach.revision() > counted;
                    });
         });
}

void Tour::sort() {
    step(QStringLiteral("click Sort it, and wait for what it finds"), [this] {
        const auto shown = state_.verdicts.revision();
        return hand_.click(QStringLiteral("sort")) && hand_.await([&] {
            return *state_.screen == AppState::Screen::results && !*state_.running &&
                   hand_.find(QStringLiteral("resultsTitle")) && state_.verdicts.revision() > shown;
        });
    });
}

void Tour::sortWithPause(const QString& name, const std::vector<const char*>& sights) {
    std::uint64_t shown = 0;
    step(QStringLiteral("pull the plug, and click Sort it"), [&] {
        shown = state_.verdicts.revision();
        world_.power.setOnBattery(true);
        return hand_.click(QStringLiteral("sort")) && hand_.await([this] {
            return hand_.find(QStringLiteral("keepScanning")) != nullptr;
        });
    });
    picture(name, sights);
    step(QStringLiteral("plug in again, and wait for what it finds"), [&] {
        world_.power.setOnBattery(false);
        return hand_.await([&] {
            return *state_.screen == AppState::Screen::results && !*state_.running &&
                   hand_.find(QStringLiteral("resultsTitle")) && state_.verdicts.revision() > shown;
        });
    });
}

void Tour::moveAll() {
    step(QStringLiteral("click Move, and wait for its end"), [this] {
        if (!hand_.click(QStringLiteral("move")) || !*state_.moving ||
            !hand_.await([this] { return !*state_.moving; }))
            return false;
        std::printf("   %s%s\n", state_.moveNote->c_str(), state_.moveError->value_or("").c_str());
        return !*state_.moveError;
    });
}

void Tour::smallScans() {
    glimpseOfChecking();
    choose(fernhill, "INBOX");
    picture(QStringLiteral("pick-later"), {"pick.before", "pick.newToSort"});
    takeEverything();
    choose(fernhill, "Lists/Walking");
    sort();
    picture(QStringLiteral("walking"));
    moveAll();
    picture(QStringLiteral("all-done"), {"results.allDone", "results.allMoved", "nothing.moved"});
    scanAnother();
    choose(fernhill, "Choir");
    sort();
    picture(QStringLiteral("nothing-in-a-folder"), {"results.nothing", "nothing.folder"});
    scanAnother();
    picture(QStringLiteral("pick-sorted"), {"pick.allSorted", "pick.justNow"});
}

void Tour::glimpseOfChecking() {
    step(QStringLiteral("click Scan another"),
         [this] { return hand_.click(QStringLiteral("scanAnother")); });
    glimpse(QStringLiteral("pick-checking"), {"pick.checking"});
    step(QStringLiteral("the folders are there"),
         [this] { return hand_.await([this] { return !*state_.refreshingFolders; }); });
}

void Tour::junkFolder() {
    choose(fernhill, "Junk");
    picture(QStringLiteral("junk-pick"), {"intent.junk"});
    sortWithPause(QStringLiteral("scanning-junk"), {"scanning.skipped"});
    picture(QStringLiteral("rescue"), {"results.rescue", "move.rescue", "summary.skipped"});
    const auto& found = *state_.verdicts;
    const auto nameless =
        std::ranges::find_if(found, [](const Verdict& each) { return each.subject.empty(); });
    if (nameless != found.end()) openCategory((*nameless).category);
    picture(QStringLiteral("no-subject"), {"message.noSubject"});
    moveAll();
    picture(QStringLiteral("rescued"));
    step(QStringLiteral("click History, and open its latest scan"), [this] {
        return hand_.click(QStringLiteral("history")) && hand_.click(QStringLiteral("scan0")) &&
               hand_.await([this] { return hand_.find(QStringLiteral("junk0")) != nullptr; });
    });
    picture(QStringLiteral("history-rescued"), {"history.noSubject"});
    step(QStringLiteral("go back"), [this] {
        return hand_.click(QStringLiteral("back")) &&
               hand_.await([this] { return hand_.find(QStringLiteral("scanAnother")) != nullptr; });
    });
    scanAnother();
    choose(fernhill, "Junk");
    sort();
    picture(QStringLiteral("nothing-in-junk-again"), {"nothing.junkSkipped"});
    scanAnother();
    choose(fernhill, "Projects/Junk");
    sort();
    picture(QStringLiteral("nothing-in-junk"), {"nothing.junk"});
    scanAnother();
}

void Tour::stoppedScan() {
    choose(fernhill, "Archive");
    step(QStringLiteral("the message files of the folder are taken away"), [this] {
        std::error_code error;
        return std::filesystem::remove_all(dataRoot(world_) + sample::mailboxDataDirectory(
                                                                  (*state_.account)->id, "Archive"),
                                           error) > 0 &&
               !error;
    });
    sort();
    picture(QStringLiteral("stopped"), {"results.stopped"});
    step(QStringLiteral("click Quit Brindlet: the program is asked to"), [this] {
        bool asked = false;
        const auto watch =
            QObject::connect(main_.model().results(), &screens::ResultsModel::quitAsked,
                             main_.model().results(), [&asked] { asked = true; });
        const bool clicked = hand_.click(QStringLiteral("quit"));
        QObject::disconnect(watch);
        return clicked && asked;
    });
    scanAnother();
}

void Tour::vanishedFolder() {
    choose(fernhill, "Projects");
    step(QStringLiteral("the folder is deleted in the mail program; come back to the picker"),
         [this] {
             const auto index =
                 sample::MailIndex::open(dataRoot(world_) + std::string(sample::indexInDataRoot));
             if (!index || !index->removeMailbox((*state_.folder)->id)) return false;
             return hand_.click(QStringLiteral("back")) &&
                    hand_.await([this] { return hand_.find(QStringLiteral("scanAnother")); }) &&
                    hand_.click(QStringLiteral("scanAnother")) &&
                    hand_.await([this] { return hand_.find(QStringLiteral("vanishedBar")); });
         });
    picture(QStringLiteral("pick-vanished"), {"pick.vanished"});
    step(QStringLiteral("let the bar go"), [this] {
        return hand_.click(QStringLiteral("dismiss")) &&
               hand_.await([this] { return !hand_.find(QStringLiteral("vanishedBar")); });
    });
}

}  // namespace brindlet::demo
