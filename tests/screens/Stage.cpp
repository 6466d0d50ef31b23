#include "screens/Stage.h"

namespace brindlet::testing {
namespace {

QQuickItem* findIn(QQuickItem* item, const QString& name) {
    if (!item->isVisible()) return nullptr;
    if (item->objectName() == name) return item;
    for (auto* child : item->childItems())
        if (auto* found = findIn(child, name)) return found;
    return nullptr;
}

}  // namespace

Stage::Stage(const std::function<void(AppState&)>& prepare)
    : state(AppState::make(world.services(), 1)) {
    if (prepare) prepare(*state);
    main = std::make_unique<MainWindow>(*state);
    if (!main->show()) qFatal("the window cannot be made");
    if (!QTest::qWaitForWindowExposed(window())) qFatal("the window is not shown");
    settle();
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
    const auto middle = item->mapToScene(QPointF(item->width() / 2, item->height() / 2)).toPoint();
    QTest::mouseClick(window(), Qt::LeftButton, {}, middle);
    return true;
}

QString Stage::focused() const {
    const auto* item = window()->activeFocusItem();
    return item ? item->objectName() : QString();
}

void Stage::settle() const {
    QCoreApplication::processEvents();
    (void)QTest::qWaitFor([&] { return window()->property("settled").toBool(); });
    QCoreApplication::processEvents();
}

void Stage::picture(const QString& name) const {
    const auto folder = qEnvironmentVariable("BRINDLET_PICTURES");
    if (folder.isEmpty()) return;
    settle();
    QTest::qWait(350);
    window()->grabWindow().save(folder + QLatin1Char('/') + name + QStringLiteral(".png"));
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
        verdict.sender = "Quill & Thread <hello" + std::to_string(i % 40) + "@quill.example>";
        verdict.subject = "New arrivals picked for you, number " + std::to_string(i);
        verdict.category = categories[static_cast<std::size_t>((i % 10) * (i % 10) % 10)];
        verdict.isJunk = isDefaultJunk(verdict.category);
        if (verdict.isJunk && i % 23 == 5) {
            verdict.isJunk = false;
            verdict.vetoed = true;
        }
        made.push_back(std::move(verdict));
    }
    return VerdictList(std::move(made));
}

}  // namespace brindlet::testing
