#include <gtest/gtest.h>

#include <QColor>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QRegularExpression>
#include <set>

#include "screens/look/SymbolProvider.h"

namespace brindlet::screens {
namespace {

QString read(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

/// The words in quotes in the screens, their words and the window around them: all of them, and
/// those that can only be names of symbols, since they have a dot (and are no name on a bus) or stand
/// on a line that speaks of symbols. Not the demo's: what it names with a dot are sights.
struct Quoted {
    std::set<std::string> all;
    std::set<std::string> symbols;
};

Quoted quotedWords() {
    static const QRegularExpression quoted(QStringLiteral("\"([a-z0-9]+(?:\\.[a-z0-9]+)*)\""));
    Quoted words;
    for (const auto* folder : {"app", "screens", "words"}) {
        QDirIterator files(
            QStringLiteral(BRINDLET_SOURCES "/") + QLatin1String(folder),
            {QStringLiteral("*.qml"), QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files,
            QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const auto file = files.next();
            if (file.contains(QLatin1String("/app/demo/"))) continue;
            for (const auto& line : read(file).split(QLatin1Char('\n'))) {
                const bool speaks = line.contains(QLatin1String("ymbol: \"")) ||
                                    line.contains(QLatin1String("ymbol = \""));
                auto found = quoted.globalMatch(line);
                while (found.hasNext()) {
                    const auto word = found.next().captured(1);
                    words.all.insert(word.toStdString());
                    if (speaks || (word.contains(QLatin1Char('.')) &&
                                   !word.startsWith(QLatin1String("org."))))
                        words.symbols.insert(word.toStdString());
                }
            }
        }
    }
    return words;
}

std::set<std::string> drawnSymbols() {
    std::set<std::string> names;
    for (const auto& file : QDir(QStringLiteral(":/symbols")).entryList())
        names.insert(file.chopped(4).toStdString());
    return names;
}

int paintedPixels(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) count += qAlpha(image.pixel(x, y)) > 0;
    return count;
}

/// The whole set, in which the screens may speak.
const std::set<std::string>& allNames() {
    static const std::set<std::string> names = {
        "arrow.clockwise.circle.fill",
        "arrow.up.forward.app",
        "arrow.uturn.backward",
        "arrow.uturn.backward.circle.fill",
        "arrow.uturn.left",
        "checkmark",
        "checkmark.circle",
        "checkmark.circle.fill",
        "checkmark.seal.fill",
        "checkmark.square.fill",
        "chevron.down",
        "chevron.left",
        "chevron.up",
        "circle",
        "clock.arrow.2.circlepath",
        "clock.arrow.circlepath",
        "cpu",
        "envelope.badge.shield.half.filled",
        "exclamationmark.shield.fill",
        "exclamationmark.triangle",
        "exclamationmark.triangle.fill",
        "folder.badge.plus",
        "folder.badge.questionmark",
        "hand.raised.fill",
        "info.circle",
        "key",
        "key.fill",
        "largecircle.fill.circle",
        "list.bullet.rectangle",
        "lock",
        "lock.fill",
        "magnifyingglass",
        "minus.square.dashed",
        "minus.square.fill",
        "person.2",
        "person.crop.circle",
        "square",
        "trash",
        "tray",
        "tray.and.arrow.down",
        "tray.full",
        "tray.full.fill",
        "wand.and.stars",
        "xmark",
        "xmark.circle",
        "xmark.circle.fill",
    };
    return names;
}

TEST(Symbols, EveryNameInUseIsDrawn) {
    const auto words = quotedWords();
    const auto drawn = drawnSymbols();
    EXPECT_GT(words.symbols.size(), 10U);
    for (const auto& name : words.symbols) EXPECT_EQ(drawn.count(name), 1U) << name;
}

TEST(Symbols, TheSetHoldsTheFortySixAndNoOther) {
    EXPECT_EQ(allNames().size(), 46U);
    EXPECT_EQ(drawnSymbols(), allNames());
}

// A screen that is taken away should take its symbols along.
TEST(Symbols, EveryDrawingIsInUse) {
    const auto words = quotedWords();
    for (const auto& name : drawnSymbols()) EXPECT_TRUE(words.all.contains(name)) << name;
}

TEST(Symbols, EachIsDrawnInTheOneColourAskedFor) {
    const QColor colour(QStringLiteral("#73ccff"));
    for (const auto& name : drawnSymbols()) {
        SCOPED_TRACE(name);
        const auto image = SymbolProvider::render(QString::fromStdString(name), colour, 48);
        EXPECT_GT(paintedPixels(image), 60);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x) {
                const auto pixel = image.pixelColor(x, y);
                if (pixel.alpha() == 255) {
                    ASSERT_EQ(pixel.rgb(), colour.rgb());
                }
            }
    }
}

TEST(Symbols, WhatIsCutOutShowsTheGround) {
    const auto image =
        SymbolProvider::render(QStringLiteral("checkmark.square.fill"), Qt::white, 48);
    EXPECT_EQ(qAlpha(image.pixel(12, 12)), 255) << "the box";
    EXPECT_LT(qAlpha(image.pixel(22, 29)), 60) << "the check mark in it";
}

TEST(Symbols, AnUnknownNameIsEmpty) {
    EXPECT_EQ(paintedPixels(SymbolProvider::render(QStringLiteral("no.such"), Qt::white, 24)), 0);
}

TEST(Symbols, TheProviderTakesNameAndColourFromTheAddress) {
    SymbolProvider provider;
    QSize size;
    const auto image =
        provider.requestImage(QStringLiteral("square?#80ff0000"), &size, QSize(32, 32));
    EXPECT_EQ(size, QSize(32, 32));
    EXPECT_EQ(image, SymbolProvider::render(QStringLiteral("square"),
                                            QColor(QStringLiteral("#80ff0000")), 32));
}

}  // namespace
}  // namespace brindlet::screens
