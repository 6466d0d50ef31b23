#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <cstdio>
#include <cstdlib>

#include "screens/look/SymbolProvider.h"

namespace brindlet {
namespace {

constexpr int columns = 8, cellWidth = 150, cellHeight = 96;
/// The size that shows every stroke, and the one in which most stand in the window.
constexpr int large = 48, small = 18;

struct Look {
    QColor ground, ink, tint;
};

void drawSymbols(QPainter& painter, const QStringList& names, const Look& look, int top) {
    for (qsizetype n = 0; n < names.size(); ++n) {
        const int left = static_cast<int>(n % columns) * cellWidth;
        const int up = top + static_cast<int>(n / columns) * cellHeight;
        painter.drawImage(left + 30, up + 14,
                          screens::SymbolProvider::render(names[n], look.tint, large));
        painter.drawImage(left + 98, up + 30,
                          screens::SymbolProvider::render(names[n], look.ink, small));
        painter.setPen(look.ink);
        painter.drawText(QRect(left + 4, up + large + 18, cellWidth - 8, 24),
                         Qt::AlignHCenter | Qt::TextWrapAnywhere, names[n]);
    }
}

bool drawSheet(const QString& path) {
    QStringList names;
    for (const auto& file : QDir(QStringLiteral(":/symbols")).entryList()) names << file.chopped(4);
    const int rows = static_cast<int>(names.size() + columns - 1) / columns;
    const Look dark{QColor(0x13, 0x11, 0x1c), QColor(0xf3, 0xf0, 0xfb), QColor(0xc7, 0x9e, 0xff)};
    const Look light{QColor(0xf6, 0xf4, 0xfb), QColor(0x1c, 0x17, 0x30), QColor(0x6a, 0x3f, 0xc4)};
    const int height = rows * cellHeight;

    QImage sheet(columns * cellWidth, 2 * height, QImage::Format_RGB32);
    QPainter painter(&sheet);
    QFont font(QStringLiteral("Inter"));
    font.setPixelSize(9);
    painter.setFont(font);
    painter.fillRect(0, 0, sheet.width(), height, dark.ground);
    painter.fillRect(0, height, sheet.width(), height, light.ground);
    drawSymbols(painter, names, dark, 0);
    drawSymbols(painter, names, light, height);
    painter.end();
    return sheet.save(path);
}

}  // namespace
}  // namespace brindlet

/// Draws every symbol on one sheet, large and small, in the dark look and in the light one.
int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: symbol_sheet FILE.png\n", stderr);
        return EXIT_FAILURE;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    if (brindlet::drawSheet(QString::fromLocal8Bit(argv[1]))) return EXIT_SUCCESS;
    std::fprintf(stderr, "%s cannot be written\n", argv[1]);
    return EXIT_FAILURE;
}
