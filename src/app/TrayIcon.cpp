#include "app/TrayIcon.h"

#include <QImage>
#include <QPixmap>

#include "screens/look/SymbolProvider.h"

namespace brindlet {

QColor trayColour() {
    return {0x92, 0x6c, 0xe8};
}

QIcon trayIcon(const QString& symbol) {
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 44, 48, 64})
        icon.addPixmap(
            QPixmap::fromImage(screens::SymbolProvider::render(symbol, trayColour(), size)));
    return icon;
}

}  // namespace brindlet
