#include <QQuickItem>
#include <algorithm>
#include <map>

#include "app/MainWindow.h"
#include "app/demo/Tour.h"
#include "app/demo/WindowWords.h"
#include "session/AppState.h"

namespace brindlet::demo {
namespace {

/// A subject that one message alone of the category has; empty when there is none.
QString onlySubject(const AppState& state, Category category) {
    std::map<std::string, int> subjects;
    for (const auto& verdict : *state.verdicts)
        if (verdict.category == category && verdict.subject.size() > 12)
            ++subjects[verdict.subject];
    const auto found =
        std::ranges::find_if(subjects, [](const auto& each) { return each.second == 1; });
    return found == subjects.end() ? QString() : QString::fromStdString(found->first);
}

}  // namespace

void Tour::openCategory(Category category) {
    step(QStringLiteral("click open ") + QString::fromUtf8(displayName(category)), [&] {
        if (*state_.expand == category) return true;
        for (int i = 0;; ++i) {
            const auto name = QStringLiteral("category%1").arg(i);
            auto* const header = hand_.find(name);
            if (!header) return false;
            const auto words = QString::fromUtf8(displayName(category));
            if (!hand_.says(*header, words + QStringLiteral(", "))) continue;
            return hand_.click(name) && hand_.await([&] {
                return *state_.expand == category && hand_.find(QStringLiteral("messages"));
            });
        }
    });
}

void Tour::pointAt(const char* words, const QString& name, const std::vector<const char*>& sights) {
    step(QStringLiteral("rest with the pointer on ") + QString::fromUtf8(words), [&] {
        const auto readings = readWindow(*main_.window());
        const auto found = std::ranges::find(readings, QString::fromUtf8(words), &Reading::text);
        if (found == readings.end()) return false;
        hand_.pointAt(*found->item);
        return true;
    });
    glimpse(name, sights);
}

void Tour::filterBy(const QString& words) {
    step(QStringLiteral("filter by ") + words, [&] {
        if (!hand_.click(QStringLiteral("filter"))) return false;
        hand_.press(Qt::Key_A, Qt::ControlModifier);
        hand_.type(words);
        return hand_.rest();
    });
}

void Tour::recordLists() {
    constexpr auto category = Category::advertisingOrPromotion;
    openCategory(Category::newsletterOrDigest);
    openCategory(Category::socialMediaBlast);
    openCategory(category);
    picture(QStringLiteral("reviewed"), {"category.reviewed", "category.lastReviewed"});
    filterBy(onlySubject(state_, category));
    picture(QStringLiteral("filter-one"), {"list.match"});
    filterBy(QStringLiteral("ar"));
    picture(QStringLiteral("filter"), {"list.matches"});
    step(QStringLiteral("empty the filter"), [this] {
        hand_.press(Qt::Key_Escape);
        return hand_.rest();
    });
    senders();
}

void Tour::senders() {
    step(QStringLiteral("click By sender"),
         [this] { return hand_.click(QStringLiteral("bySender")) && hand_.rest(); });
    picture(QStringLiteral("senders"), {"list.senders"});
    step(QStringLiteral("walk to the list"),
         [this] { return hand_.tabTo(QStringLiteral("messages")); });
    glimpse(QStringLiteral("sender-all"), {"sender.all"});
    step(QStringLiteral("untick the second sender"), [this] {
        hand_.press(Qt::Key_Down);
        hand_.press(Qt::Key_Space);
        return hand_.rest();
    });
    hand_.press(Qt::Key_Up);
    hand_.press(Qt::Key_Down);
    glimpse(QStringLiteral("sender-none"), {"sender.none"});
    step(QStringLiteral("open the first"), [this] {
        hand_.press(Qt::Key_Up);
        hand_.press(Qt::Key_Right);
        return hand_.rest();
    });
    picture(QStringLiteral("sender-open"), {"sender.open"});
    step(QStringLiteral("untick one of its messages"), [this] {
        hand_.press(Qt::Key_Down);
        hand_.press(Qt::Key_Space);
        return hand_.rest();
    });
    picture(QStringLiteral("sender-some"), {"sender.some"});
    step(QStringLiteral("close it, and open and close the second"), [this] {
        for (const auto key : {Qt::Key_Up, Qt::Key_Left, Qt::Key_Down, Qt::Key_Right, Qt::Key_Left})
            hand_.press(key);
        return hand_.rest();
    });
    picture(QStringLiteral("sender-reviewed"), {"sender.reviewed", "sender.lastReviewed"});
    step(QStringLiteral("click By sender again"),
         [this] { return hand_.click(QStringLiteral("bySender")) && hand_.rest(); });
}

void Tour::junkFolders() {
    step(QStringLiteral("open the menu of the folders that junk may go to"), [this] {
        return hand_.click(QStringLiteral("destinations")) &&
               hand_.await([this] { return hand_.find(QStringLiteral("destination0")); });
    });
    picture(QStringLiteral("move-folders"), {"move.folders"});
    step(QStringLiteral("leave it with Escape"), [this] {
        hand_.press(Qt::Key_Escape);
        return hand_.await([this] { return !hand_.find(QStringLiteral("destination0")); });
    });
}

void Tour::oddMessages() {
    const auto categoryWith = [this](const auto& wanted) {
        const auto& all = *state_.verdicts;
        const auto found = std::ranges::find_if(all, wanted);
        return found == all.end() ? Category::cannotTell : (*found).category;
    };
    openCategory(categoryWith([](const Verdict& each) { return each.vetoed; }));
    picture(QStringLiteral("protected"), {"list.protected"});
    openCategory(categoryWith([](const Verdict& each) { return !each.messageID; }));
    picture(QStringLiteral("no-id"), {"message.noId"});
    openCategory(categoryWith([](const Verdict& each) { return !each.isJunk && !each.vetoed; }));
    step(QStringLiteral("tick a message that was to stay"), [this] {
        if (!hand_.tabTo(QStringLiteral("messages"))) return false;
        hand_.press(Qt::Key_Space);
        return hand_.rest();
    });
    picture(QStringLiteral("message-goes"), {"message.goes", "message.unticked"});
    step(QStringLiteral("open it in the mail program, by Ctrl+O"), [this] {
        hand_.press(Qt::Key_O, Qt::ControlModifier);
        return true;
    });
    glimpse(QStringLiteral("opened"), {"demo.opened", "message.open"});
}

}  // namespace brindlet::demo
