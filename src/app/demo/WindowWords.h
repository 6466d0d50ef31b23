#pragma once

#include <QQuickItem>
#include <QString>
#include <vector>

class QQuickWindow;

namespace brindlet::demo {

/// Something that can be read in a window: a word that is painted, what a screen reader is told of
/// a control, or a symbol, as "symbol:" and its name.
struct Reading {
    QString text;
    QQuickItem* item = nullptr;
    /// Its middle lies within the window and whatever clips it.
    bool inView = false;
};

/// All that stands in the window now, what must be scrolled to among it. The items live until the
/// program runs on.
std::vector<Reading> readWindow(const QQuickWindow& window);

/// Whether a text is as the pattern wants it: "*" stands for anything, "#" for a number.
bool reads(const QString& pattern, const QString& text);

}  // namespace brindlet::demo
