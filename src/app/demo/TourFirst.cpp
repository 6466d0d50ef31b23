#include <QQuickItem>
#include <cstdio>

#include "app/MainWindow.h"
#include "app/demo/Tour.h"
#include "base/Files.h"
#include "sample/MailSettings.h"
#include "session/AppState.h"

namespace brindlet::demo {
namespace {

/// How far the ring is when the tour pulls the plug, to have time for a look at it.
constexpr double lookAt = 0.6;

/// How much of the mail program's time really passes.
constexpr double slow = 0.3, quick = 0.01;

bool hasFocus(const Hand& hand, const QString& name) {
    const auto* item = hand.find(name);
    return item && item->hasActiveFocus();
}

}  // namespace

void Tour::firstVisit() {
    rulesWithNone();
    welcome();
    pick();
    newDestination();
    scan();
    results();
    correction();
    storesStand();
    firstHistory();
    oddMessages();
    junkFolders();
    failedMoves();
    move();
    putBack();
    secondScan();
    gmail();
    step(QStringLiteral("click History, from which Escape leads back"),
         [this] { return hand_.click(QStringLiteral("history")) && hand_.rest(); });
    automatic();
}

void Tour::welcome() {
    step(QStringLiteral("the welcome stands, with the keyboard on Start"), [this] {
        return hand_.await([this] { return hasFocus(hand_, QStringLiteral("start")); });
    });
    picture(QStringLiteral("welcome"),
            {"welcome", "welcome.badges", "welcome.rules.none", "welcome.automatic.off"});
    step(QStringLiteral("press Return, while the mail program takes its time"), [this] {
        if (!changeMail([](auto& mail) { mail.behaviour.pace = slow; })) return false;
        hand_.press(Qt::Key_Return);
        return true;
    });
}

void Tour::pick() {
    glimpse(QStringLiteral("finding"), {"pick.finding"});
    step(QStringLiteral("from now on the mail program is quick again"),
         [this] { return changeMail([](auto& mail) { mail.behaviour.pace = quick; }); });
    step(QStringLiteral("the mailboxes are found"), [this] {
        return hand_.await(
            [this] { return hand_.find(QStringLiteral("folders")) && !*state_.refreshingFolders; });
    });
    step(QStringLiteral("the round button waits for a mailbox"), [this] {
        const auto* sort = hand_.find(QStringLiteral("sort"));
        return sort && !sort->isEnabled();
    });
    step(QStringLiteral("click the first mailbox, the inbox"), [this] {
        return hand_.clickRow(QStringLiteral("folders"), 0) && hand_.await([this] {
            return state_.folder->has_value() && state_.inReach->has_value();
        });
    });
    step(QStringLiteral("open the menu of how far back, by keyboard, and take the last entry"),
         [this] {
             // Two counts on their way at once may come in either order.
             const auto counted = state_.inReach.revision();
             if (!hand_.tabTo(QStringLiteral("reach"))) return false;
             hand_.press(Qt::Key_Space);
             picture(QStringLiteral("pick-reaches"), {"pick.reaches"});
             for (int i = 0; i < 4; ++i) hand_.press(Qt::Key_Down);
             hand_.press(Qt::Key_Return);
             return hand_.await([&] {
                 return *state_.reach == Reach::everything && state_.inReach.revision() > counted;
             });
         });
    step(QStringLiteral("the same in the menu of how many"), [this] {
        if (!hand_.tabTo(QStringLiteral("limit"))) return false;
        hand_.press(Qt::Key_Space);
        picture(QStringLiteral("pick-limits"), {"pick.limits"});
        for (int i = 0; i < 4; ++i) hand_.press(Qt::Key_Down);
        hand_.press(Qt::Key_Return);
        return hand_.await([this] { return *state_.limit == 0; });
    });
    step(QStringLiteral("the count takes in the whole mailbox"), [this] {
        return hand_.await([this] { return *state_.inReach == (*state_.folder)->count; });
    });
    picture(QStringLiteral("pick"), {"pick", "pick.accounts", "pick.toSort", "intent.existing"});
    picture(QStringLiteral("pick-folders"),
            {"pick.inbox", "pick.junk", "pick.archive", "pick.sent", "pick.drafts", "pick.trash",
             "pick.custom", "pick.never", "pick.empty", "pick.new"});
}

void Tour::scan() {
    // The plug is pulled as soon as enough is done, from the scan's own reports.
    auto& scanning = *main_.model().scanning();
    const auto watch = QObject::connect(&scanning, &screens::ScanningModel::wordsChanged, &scanning,
                                        [this, &scanning] {
                                            if (*state_.running && scanning.share() >= lookAt)
                                                world_.power.setOnBattery(true);
                                        });
    step(QStringLiteral("click Sort it"), [this] { return hand_.click(QStringLiteral("sort")); });
    step(QStringLiteral("the ring fills, until the plug is pulled"), [this] {
        return hand_.await(
            [this] { return hand_.find(QStringLiteral("keepScanning")) != nullptr; });
    });
    QObject::disconnect(watch);
    step(QStringLiteral("the ring comes to rest"), [this] {
        const auto* ring = hand_.find(QStringLiteral("ring"));
        return ring && hand_.await([&] {
            return ring->property("value").toReal() == main_.model().scanning()->share();
        });
    });
    picture(QStringLiteral("scanning"),
            {"scanning", "scanning.place", "scanning.speed", "scanning.remaining",
             "scanning.protected", "scanning.junk", "scanning.paused"});
    step(QStringLiteral("switch on scanning on battery power"),
         [this] { return hand_.click(QStringLiteral("keepScanning")); });
    glimpse(QStringLiteral("scanning-on"), {"scanning.stage"});
}

void Tour::results() {
    step(QStringLiteral("the results come"), [this] {
        return hand_.await([this] {
            return !*state_.running && hand_.find(QStringLiteral("resultsTitle")) != nullptr;
        });
    });
    step(QStringLiteral("every message has its verdict"), [this] {
        std::printf("   %lld messages, %lld junk, %lld protected\n",
                    static_cast<long long>(state_.verdicts->size()),
                    static_cast<long long>(state_.verdicts->junkCount()),
                    static_cast<long long>(state_.verdicts->vetoedCount()));
        return *state_.done == *state_.total && !state_.verdicts->empty();
    });
    picture(QStringLiteral("results"),
            {"results.junk", "summary", "summary.protected", "summary.people", "category",
             "category.all", "category.none", "category.junk", "category.keep", "move",
             "results.leave", "results.automatic.off"});
    step(QStringLiteral("click the first category open"), [this] {
        return hand_.click(QStringLiteral("category0")) &&
               hand_.await([this] { return hand_.find(QStringLiteral("messages")) != nullptr; });
    });
    picture(QStringLiteral("category"), {"list", "list.bySender", "list.messages", "message"});
}

void Tour::storesStand() {
    step(QStringLiteral(
             "the scan stands in history.json, in its file under scans, and in seen.json"),
         [this] {
             state_.drainWrites();
             const auto store = world_.directories.store();
             const auto scans = files::list(store + "/scans");
             const auto seen = files::read(store + "/seen.json");
             return files::exists(store + "/history.json") && scans && scans->size() == 1 && seen &&
                    seen->size() > 2;
         });
}

void Tour::secondScan() {
    const auto before = state_.remainingVerdicts().size();
    step(QStringLiteral("click Scan another"),
         [this] { return hand_.click(QStringLiteral("scanAnother")); });
    step(QStringLiteral("the inbox is counted again"), [this] {
        return hand_.await([this] {
            return hand_.find(QStringLiteral("folders")) && !*state_.refreshingFolders &&
                   *state_.inReach < (*state_.folder)->count;
        });
    });
    picture(QStringLiteral("pick-again"));
    step(QStringLiteral("click Sort it"), [this] { return hand_.click(QStringLiteral("sort")); });
    step(QStringLiteral("the results come"), [this] {
        return hand_.await([this] {
            return !*state_.running && hand_.find(QStringLiteral("resultsTitle")) != nullptr;
        });
    });
    step(QStringLiteral("what was decided was left out"), [this, before] {
        std::printf("   %lld skipped, %lld sorted again for want of an id\n",
                    static_cast<long long>(*state_.skipped),
                    static_cast<long long>(state_.verdicts->size()));
        return *state_.skipped > 0 &&
               static_cast<std::size_t>(*state_.skipped) + state_.verdicts->size() == before;
    });
    picture(QStringLiteral("second-results"), {"summary.skipped"});
}

}  // namespace brindlet::demo
