#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>
#include <cstdio>
#include <cstdlib>

/// Draws one picture of the icon: the build calls it for each size.
int main(int argc, char** argv) {
    const int pixels = argc == 4 ? std::atoi(argv[2]) : 0;
    if (pixels < 1) {
        std::fputs("usage: draw_icon DRAWING.svg PIXELS PICTURE.png\n", stderr);
        return EXIT_FAILURE;
    }
    QSvgRenderer drawing(QString::fromLocal8Bit(argv[1]));
    if (!drawing.isValid()) {
        std::fprintf(stderr, "%s is no drawing\n", argv[1]);
        return EXIT_FAILURE;
    }
    QImage picture(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter);
    painter.end();
    if (picture.save(QString::fromLocal8Bit(argv[3]))) return EXIT_SUCCESS;
    std::fprintf(stderr, "%s cannot be written\n", argv[3]);
    return EXIT_FAILURE;
}
