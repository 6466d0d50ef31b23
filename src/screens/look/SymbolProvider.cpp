#include "screens/look/SymbolProvider.h"

#include <QFile>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>

namespace brindlet::screens {
namespace {

constexpr int defaultSize = 24;

void drawBlack(QPainter& painter, QString document, int pixels) {
    document.replace(QLatin1String("currentColor"), QLatin1String("#000"));
    QSvgRenderer(document.toUtf8()).render(&painter, QRectF(0, 0, pixels, pixels));
}

}  // namespace

// The renderer knows neither masks nor clips, so a symbol's group "cut" is what is taken out of the
// rest. Colouring comes last and once: then overlapping strokes of a translucent colour do not
// show.
QImage SymbolProvider::render(const QString& name, const QColor& colour, int pixels,
                              double weight) {
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QFile file(QStringLiteral(":/symbols/%1.svg").arg(name));
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning("There is no symbol \"%s\"", qPrintable(name));
        return image;
    }
    const auto width = QStringLiteral("stroke-width=\"%1\"");
    const auto document =
        QString::fromUtf8(file.readAll()).replace(width.arg(usualWeight), width.arg(weight));
    static const QRegularExpression cutGroup(QStringLiteral("<g id=\"cut\".*?</g>"),
                                             QRegularExpression::DotMatchesEverythingOption);
    const auto cut = cutGroup.match(document);

    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    drawBlack(painter, QString(document).remove(cutGroup), pixels);
    if (cut.hasMatch()) {
        painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
        const auto head = document.left(document.indexOf(QLatin1Char('>')) + 1);
        drawBlack(painter, head + cut.captured() + QLatin1String("</svg>"), pixels);
    }
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), colour);
    return image;
}

QImage SymbolProvider::requestImage(const QString& id, QSize* size, const QSize& requested) {
    const auto mark = id.indexOf(QLatin1Char('?'));
    const QColor colour(mark < 0 ? QStringLiteral("#000") : id.mid(mark + 1));
    const int pixels = requested.width() > 0 ? requested.width() : defaultSize;
    auto image = render(mark < 0 ? id : id.left(mark), colour, pixels);
    if (size) *size = image.size();
    return image;
}

}  // namespace brindlet::screens
