import QtQuick

// A large symbol on a raised tile.
Rectangle {
    id: root

    required property string symbol
    property color tint: Theme.lavenderInk

    implicitWidth: 92
    implicitHeight: 92
    radius: 26
    color: Theme.raised
    border.width: 1
    border.color: Theme.line

    Shadow {
        radius: root.radius
    }
    Symbol {
        anchors.centerIn: parent
        symbol: root.symbol
        size: 46
        color: root.tint
    }

    Accessible.ignored: true
}
