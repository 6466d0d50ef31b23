import QtQuick

GhostButton {
    symbol: "chevron.left"
}
