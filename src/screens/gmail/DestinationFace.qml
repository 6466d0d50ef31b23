import QtQuick
import Brindlet.Screens

// A folder's name, and the symbol of a menu at its end.
Item {
    id: root

    required property string text
    required property string symbol
    required property color ink
    readonly property bool truncated: name.truncated

    implicitWidth: Math.ceil(name.implicitWidth) + 40

    Txt {
        id: name

        x: 10
        anchors.verticalCenter: parent.verticalCenter
        width: parent.width - 40
        text: root.text
        size: Theme.rowSize
        weight: Font.DemiBold
        color: root.ink
        elide: Text.ElideMiddle
        Accessible.ignored: true
    }
    Symbol {
        x: parent.width - width - 9
        anchors.verticalCenter: parent.verticalCenter
        symbol: root.symbol
        color: root.ink
        size: 13
    }
}
