import QtQuick
import QtQuick.Layouts

// A sentence led by a symbol.
RowLayout {
    id: root

    required property string symbol
    required property string text
    property color ink: Theme.ink2
    property color symbolInk: Theme.lavenderInk

    spacing: Theme.space3

    Symbol {
        Layout.alignment: Qt.AlignTop
        symbol: root.symbol
        color: root.symbolInk
        size: 17
    }
    Txt {
        Layout.fillWidth: true
        text: root.text
        size: Theme.rowSize
        color: root.ink
        wrapMode: Text.WordWrap
        lineHeight: 1.2
    }
}
