import QtQuick
import QtQuick.Templates as T

// One line of a menu.
T.MenuItem {
    id: root

    property string symbol: ""
    property color tint: Theme.ink
    property color symbolTint: tint
    // The word stands where it would with a symbol.
    property bool indented: false
    readonly property bool truncated: (contentItem as ButtonFace)?.truncated ?? false

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: 34
    leftPadding: 10
    rightPadding: 12
    hoverEnabled: true

    background: Rectangle {
        radius: Theme.rowRadius - 2
        color: root.highlighted ? Theme.press : "transparent"
    }
    contentItem: ButtonFace {
        symbol: root.symbol
        text: root.text
        tint: root.tint
        symbolTint: root.symbolTint
        indented: root.indented
        leading: true
    }

    Accessible.role: Accessible.MenuItem
    Accessible.name: root.text
    Accessible.onPressAction: root.triggered()
}
