#include "app/TrayIcon.h"

#include <QImage>
#include <QPixmap>
#include <algorithm>

#include "screens/look/SymbolProvider.h"

namespace brindlet {

QColor trayColour() {
    return {0x92, 0x6c, 0xe8};
}

QIcon trayIcon(const QString& symbol) {
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 44, 48, 64}) {
        // Thinner lines than a pixel and a half only shimmer.
        const double weight = std::max(screens::SymbolProvider::usualWeight, 1.5 * 24 / size);
        icon.addPixmap(QPixmap::fromImage(
            screens::SymbolProvider::render(symbol, trayColour(), size, weight)));
    }
    return icon;
}

}  // namespace brindlet
