#include "app/demo/WindowWords.h"

#include <QAccessible>
#include <QHash>
#include <QQuickWindow>
#include <QRegularExpression>

namespace brindlet::demo {
namespace {

void add(std::vector<Reading>& readings, const QString& text, QQuickItem* item, bool inView) {
    if (!text.isEmpty()) readings.push_back({text, item, inView});
}

void readItem(std::vector<Reading>& readings, QQuickItem* item, QRectF view) {
    if (!item->isVisible() || item->opacity() == 0) return;
    const QRectF place = item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
    const bool inView = view.contains(place.center());
    add(readings, item->property("text").toString(), item, inView);
    if (const auto symbol = item->property("symbol").toString(); !symbol.isEmpty())
        add(readings, QStringLiteral("symbol:") + symbol, item, inView);
    if (auto* const spoken = QAccessible::queryAccessibleInterface(item)) {
        add(readings, spoken->text(QAccessible::Name), item, inView);
        add(readings, spoken->text(QAccessible::Description), item, inView);
    }
    if (item->clip()) view &= place;
    for (auto* child : item->childItems()) readItem(readings, child, view);
}

}  // namespace

std::vector<Reading> readWindow(const QQuickWindow& window) {
    std::vector<Reading> readings;
    readItem(readings, window.contentItem(), QRectF(QPointF(), window.size()));
    return readings;
}

bool reads(const QString& pattern, const QString& text) {
    static QHash<QString, QRegularExpression> known;
    auto& expression = known[pattern];
    if (expression.pattern().isEmpty()) {
        auto words = QRegularExpression::escape(pattern);
        words.replace(QLatin1String("\\*"), QLatin1String(".*"));
        words.replace(QLatin1String("\\#"), QLatin1String("[0-9][0-9.,]*"));
        expression.setPattern(QRegularExpression::anchoredPattern(words));
        expression.setPatternOptions(QRegularExpression::DotMatchesEverythingOption);
    }
    return expression.match(text).hasMatch();
}

}  // namespace brindlet::demo
