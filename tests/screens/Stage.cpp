#include "screens/Stage.h"

#include <QTest>
#include <algorithm>

namespace brindlet::testing {
namespace {

QQuickItem* findIn(QQuickItem* item, const QString& name) {
    if (!item->isVisible()) return nullptr;
    if (item->objectName() == name) return item;
    for (auto* child : item->childItems())
        if (auto* found = findIn(child, name)) return found;
    return nullptr;
}

void gather(QQuickItem* item, std::vector<QQuickItem*>& all) {
    if (!item->isVisible()) return;
    all.push_back(item);
    for (auto* child : item->childItems()) gather(child, all);
}

QPoint middleOf(const QQuickItem* item) {
    return item->mapToScene(QPointF(item->width() / 2, item->height() / 2)).toPoint();
}

}  // namespace

Stage::Stage(const std::function<void(AppState&)>& prepare, Motion motion)
    : state(AppState::make(world.services(), 1)) {
    if (prepare) prepare(*state);
    main = std::make_unique<MainWindow>(*state, updater);
    main->model().setStill(motion == Motion::none);
    if (!main->show()) qFatal("the window cannot be made");
    if (!QTest::qWaitForWindowExposed(window())) qFatal("the window is not shown");
    window()->requestActivate();
    settle();
}

Stage::~Stage() {
    world.retire();
}

QQuickItem* Stage::find(const QString& name) const {
    return findIn(window()->contentItem(), name);
}

QQuickItem* Stage::await(const QString& name) const {
    settle();
    QQuickItem* item = nullptr;
    (void)QTest::qWaitFor([&] { return (item = find(name)) != nullptr; });
    return item;
}

bool Stage::click(const QString& name) const {
    auto* item = await(name);
    if (!item) return false;
    QTest::mouseClick(window(), Qt::LeftButton, {}, middleOf(item));
    settle();
    return true;
}

bool Stage::hover(const QString& name) const {
    auto* item = await(name);
    if (!item) return false;
    QTest::mouseMove(window(), middleOf(item));
    settle();
    return true;
}

void Stage::press(Qt::Key key, Qt::KeyboardModifiers modifiers) const {
    QTest::keyClick(window(), key, modifiers);
    settle();
}

void Stage::type(const QString& text) const {
    for (const auto letter : text) QTest::keyClick(window(), letter.toLatin1());
    settle();
}

QString Stage::focused() const {
    const auto* item = window()->activeFocusItem();
    while (item && item->objectName().isEmpty()) item = item->parentItem();
    return item ? item->objectName() : QString();
}

bool Stage::tabTo(const QString& name) const {
    for (int i = 0; i < 40; ++i) {
        if (focused() == name) return true;
        press(Qt::Key_Tab);
    }
    return false;
}

void Stage::settle() const {
    QCoreApplication::processEvents();
    (void)QTest::qWaitFor([&] { return window()->property("settled").toBool(); });
    QCoreApplication::processEvents();
}

std::vector<QQuickItem*> Stage::items() const {
    std::vector<QQuickItem*> all;
    gather(window()->contentItem(), all);
    return all;
}

std::vector<QQuickItem*> Stage::tabStops() const {
    std::vector<QQuickItem*> stops;
    for (auto* item : items())
        if (item->activeFocusOnTab() && item->isEnabled()) stops.push_back(item);
    return stops;
}

MailFolder folder(std::int64_t id, const std::string& name, std::int64_t count) {
    return {id, name, count, MailFolder::roleForName(name)};
}

MailAccount account(const std::string& address, std::vector<MailFolder> folders) {
    MailAccount made;
    made.id = "id of " + address;
    made.address = address;
    made.folders = std::move(folders);
    return made;
}

VerdictList verdicts(int count) {
    constexpr auto categories = allCases<Category>();
    std::vector<Verdict> made;
    made.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        Verdict verdict;
        verdict.id = i + 1;
        if (i % 17 != 3) verdict.messageID = std::to_string(i) + "@letters.example";
        verdict.sender = "Quill & Thread <news@quill" + std::to_string(i % 40) + ".example>";
        verdict.subject = "New arrivals picked for you, number " + std::to_string(i);
        verdict.category = categories[static_cast<std::size_t>(i % 10)];
        verdict.isJunk = isDefaultJunk(verdict.category);
        if (verdict.isJunk && i % 23 == 5) {
            verdict.isJunk = false;
            verdict.vetoed = true;
        }
        made.push_back(std::move(verdict));
    }
    return VerdictList(std::move(made));
}

ScanRecord scanRecord(const AppState& state, double daysAgo, const std::string& folder, int moved) {
    ScanRecord record;
    record.started = state.services().clock.now() - daysAgo * 86400;
    record.account = "ada@example.org";
    record.folder = folder;
    record.scanned = 1834;
    record.junk = std::max(212, moved);
    if (moved > 0) record.movedTo = "Brindlet Junk";
    for (int i = 0; i < moved; ++i)
        record.moved.push_back(
            {std::to_string(i) + "@letters.example",
             "Quill & Thread <hello" + std::to_string(i) + "@quill.example>",
             i == 1 ? "" : "New arrivals picked for you, number " + std::to_string(i)});
    return record;
}

VerdictList verdictsOfOneDomain(int count) {
    std::vector<Verdict> made;
    for (auto verdict : verdicts(count)) {
        verdict.sender =
            "Quill & Thread <hello" + std::to_string(made.size() % 40) + "@quill.example>";
        made.push_back(std::move(verdict));
    }
    return VerdictList(std::move(made));
}

namespace scenes {
namespace {

void selectInbox(AppState& state) {
    state.account.set(account("ada@example.org", {folder(1, "INBOX", 1834)}));
    state.folder.set(state.account->value().folders.front());
}

}  // namespace

void interrupted(AppState& state) {
    state.accounts.set({account("ada@example.org", {folder(1, "INBOX", 1834)})});
    PendingMove move;
    move.account = "ada@example.org";
    move.source = "INBOX";
    move.destination = "Brindlet Junk";
    move.folderLabel = "INBOX";
    for (int i = 412; i < 1834; ++i)
        move.remaining.push_back({i + 1, std::to_string(i) + "@letters.example"});
    move.done = 412;
    move.started = state.services().clock.now();
    state.interrupted.begin(std::move(move));
}

void permission(AppState& state) {
    state.navigate(AppState::Screen::permission);
}

void unsupported(AppState& state) {
    dynamic_cast<doubles::ScriptedModel&>(state.services().model).available =
        ModelAvailability::notReady;
    // Nobody tells when the model comes or goes.
    state.stage.set("");
}

void mailboxes(AppState& state) {
    state.accounts.set(
        {account("ada@example.org",
                 {folder(1, "INBOX", 1834), folder(2, "Junk", 212), folder(3, "Receipts", 64),
                  folder(4, "Projects/Harbour House with quite a long name of its own", 31),
                  folder(5, "Travel", 0), folder(6, "Archive", 12044), folder(7, "Sent", 902),
                  folder(8, "Drafts", 3), folder(9, "Trash", 44)}),
         account("ada.work@example.net", {folder(11, "INBOX", 5)})});
    state.selectAccount(MailAccount(state.accounts->front()));
    state.navigate(AppState::Screen::pick);
}

void chosenMailbox(AppState& state) {
    mailboxes(state);
    state.seen.mark({"a", "b"}, true, "ada@example.org", "INBOX");
    state.folder.set(state.account->value().folders.front());
    state.folderVanished.set("Old/Lists");
}

void gmail(AppState& state) {
    state.accounts.set({account(
        "ada@example.org", {folder(1, "INBOX", 1834), folder(2, "[Gmail]/Spam", 212),
                            folder(3, "Receipts", 64), folder(4, "[Gmail]/All Mail", 12044)})});
    state.selectAccount(MailAccount(state.accounts->front()));
    state.folder.set(state.account->value().folders.front());
    state.navigate(AppState::Screen::pick);
}

void askedAboutGmail(AppState& state) {
    gmail(state);
    state.connectGmail(MailAccount(**state.account));
}

void noAccounts(AppState& state) {
    state.navigate(AppState::Screen::pick);
}

void scanning(AppState& state) {
    selectInbox(state);
    state.stage.set("Sorting 1,622 new - skipped 212 already sorted");
    state.running.set(true);
    state.total.set(1622);
    state.done.set(811);
    state.rate.set(41.7);
    state.eta.set(288.0);
    state.skipped.set(212);
    state.verdicts.set(verdicts(811));
    state.navigate(AppState::Screen::scanning);
}

void pausedScan(AppState& state) {
    scanning(state);
    state.stage.set("Paused - on battery. Plug in to continue, or allow battery scanning below.");
}

void results(AppState& state) {
    selectInbox(state);
    state.verdicts.set(verdicts(200));
    AppState::Ids ticked;
    for (const auto& verdict : *state.verdicts)
        if (verdict.isJunk && verdict.messageID) ticked.insert(verdict.id);
    state.approved.set(ticked);
    state.navigate(AppState::Screen::results);
}

void openResults(AppState& state) {
    results(state);
    state.expand.set(Category::newsletterOrDigest);
}

void correctedResults(AppState& state) {
    openResults(state);
    state.setCategoryTicked(Category::billOrPayment, true);
    state.toggleMessage(2);
}

void sweptResults(AppState& state) {
    openResults(state);
    state.setCategoryTicked(Category::billOrPayment, true);
}

void movedResults(AppState& state) {
    results(state);
    std::vector<Verdict> list;
    std::unordered_set<std::string> moved;
    for (const auto& verdict : *state.verdicts) {
        const bool newsletter = verdict.category == Category::newsletterOrDigest;
        if (!newsletter && verdict.category != Category::advertisingOrPromotion) continue;
        if (newsletter && verdict.messageID) moved.insert(*verdict.messageID);
        list.push_back(verdict);
    }
    list[3].subject.clear();
    state.verdicts.set(VerdictList(std::move(list)));
    state.movedAlready.set(std::move(moved));
    state.pastMove.set(AppState::PastMove{"INBOX", "Brindlet Junk"});
    state.putBack.set({2});
}

void allDone(AppState& state) {
    results(state);
    std::vector<Verdict> list;
    std::unordered_set<std::string> moved;
    for (const auto& verdict : *state.verdicts) {
        if (!verdict.isJunk || !verdict.messageID) continue;
        moved.insert(*verdict.messageID);
        list.push_back(verdict);
    }
    state.verdicts.set(VerdictList(std::move(list)));
    state.approved.set({});
    state.movedAlready.set(std::move(moved));
    state.pastMove.set(AppState::PastMove{"INBOX", "Brindlet Junk"});
}

void movable(AppState& state) {
    results(state);
    state.account.mutate([](auto& account) {
        account->folders.push_back(folder(2, "Junk", 212));
        account->folders.push_back({3, "דואר זבל", 9, MailFolder::Role::junk});
    });
}

void moving(AppState& state) {
    movable(state);
    state.moving.set(true);
    state.moveStage.set("Moving into Junk");
    state.movedCount.set(20);
    state.moveTotal.set(72);
}

void failedMove(AppState& state) {
    movable(state);
    state.moveError.set("Mail closed before it finished.");
}

void stoppedScan(AppState& state) {
    selectInbox(state);
    state.scanError.set("Brindlet could only read 499 of 1,000 messages on disk.");
    state.navigate(AppState::Screen::results);
}

void nothingFound(AppState& state) {
    selectInbox(state);
    state.navigate(AppState::Screen::results);
}

void history(AppState& state) {
    auto& history = state.history;
    history.add(scanRecord(state, 0.1, "INBOX", 3));
    history.writeScan({}, history.records->front().started);
    history.add(scanRecord(state, 3.4, "Receipts"));
    history.add(scanRecord(state, 12.7, "דואר נכנס", 1));
    history.add(scanRecord(state, 33, "Projects/Harbour House with quite a long name of its own"));
    for (const double daysAgo : {28.5, 0.0}) {
        auto binned = scanRecord(state, 40 + daysAgo, daysAgo > 0 ? "Junk" : "Archive", 5);
        binned.deletedAt = state.services().clock.now() - daysAgo * 86400;
        history.deleted.mutate([&](auto& bin) { bin.insert(bin.begin(), binned); });
    }
    state.seen.mark({"a@x.example", "b@x.example"}, true, "ada@example.org", "INBOX");
    state.navigate(AppState::Screen::history);
}

void longHistory(AppState& state) {
    history(state);
    state.history.records.mutate(
        [&](auto& records) { records[0] = scanRecord(state, 0.1, "INBOX", 312); });
}

void emptyHistory(AppState& state) {
    state.navigate(AppState::Screen::history);
}

void automatic(AppState& state) {
    mailboxes(state);
    const auto& account = state.accounts->front().id;
    for (const auto* name : {"INBOX", "Receipts", "Old/Lists"})
        state.schedule.toggle(account, name);
    state.schedule.setEnabled(true);
    state.navigate(AppState::Screen::automatic);
}

void automaticOff(AppState& state) {
    mailboxes(state);
    state.navigate(AppState::Screen::automatic);
}

void automaticAtFirst(AppState& state) {
    state.schedule.setEnabled(true);
    state.navigate(AppState::Screen::automatic);
}

void noRules(AppState& state) {
    selectInbox(state);
    state.navigate(AppState::Screen::rules);
}

void rules(AppState& state) {
    results(state);
    state.verdicts.set(verdictsOfOneDomain(200));
    const auto flip = [&](Category category, std::int64_t toKeep, std::int64_t toJunk) {
        Calibration::Tally tally{toKeep, toJunk, {"a", "b", "c", "d", "e", "f"}, {}};
        if (toJunk > toKeep) tally.junkSenders.swap(tally.keepSenders);
        state.calibration.byCategory.mutate(
            [&](auto& tallies) { tallies[std::string(rawValue(category))] = tally; });
    };
    flip(Category::newsletterOrDigest, 17, 2);
    flip(Category::accountWelcomeOrInvitation, 1, 12);

    using Verdict = Rule::Verdict;
    const auto rule = [&](std::string sender, Verdict verdict, Rule::Scope scope,
                          std::int64_t hits) {
        Rule made;
        made.sender = std::move(sender);
        made.verdict = verdict;
        made.scope = scope;
        made.hits = hits;
        return made;
    };
    auto held = rule("oldlist.example", Verdict::junk, Rule::Scope::always, 3);
    held.category = rawValue(Category::newsletterOrDigest);
    held.legacy = true;
    auto orders = rule("quill.example", Verdict::keep, Rule::Scope::session, 2);
    orders.category = rawValue(Category::receiptOrOrderOrShipping);
    auto arrivals = rule("quill.example", Verdict::junk, Rule::Scope::session, 4);
    arrivals.category = rawValue(Category::advertisingOrPromotion);
    arrivals.templateWords = {"new", "arrivals", "picked"};
    auto strange = rule("harbour.example", Verdict::keep, Rule::Scope::always, 1);
    strange.category = "a category of tomorrow";
    state.rules.all.set({held, rule("quill.example", Verdict::junk, Rule::Scope::always, 12),
                         rule("ann@letters.example", Verdict::keep, Rule::Scope::always, 1),
                         strange});
    state.rules.session.set({orders, arrivals});
    state.navigate(AppState::Screen::rules);
}

void taughtHistory(AppState& state) {
    rules(state);
    history(state);
}

}  // namespace scenes
}  // namespace brindlet::testing
