import QtQuick

// A button at the end of a list's row. The list hands it the clicks; the keyboard has a key for it.
Rectangle {
    id: root

    required property string symbol
    property string help: ""
    signal asked

    implicitWidth: 32
    implicitHeight: 32
    radius: Theme.rowRadius
    color: hover.hovered ? Theme.press : "transparent"

    HoverHandler {
        id: hover
    }
    Symbol {
        anchors.centerIn: parent
        symbol: root.symbol
        size: 16
    }
    HelpSpot {
        control: root
        text: root.help
        wanted: hover.hovered
    }

    Accessible.role: Accessible.Button
    Accessible.name: root.help
    Accessible.onPressAction: root.asked()
}
