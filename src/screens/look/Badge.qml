import QtQuick

// A small pill with a symbol and a word.
Rectangle {
    id: root

    required property string symbol
    required property string text
    property color tint: Theme.lavender
    property color ink: Theme.lavenderInk

    implicitWidth: row.implicitWidth + 24
    implicitHeight: 30
    radius: height / 2
    color: Theme.wash(root.tint, Theme.washStrength)

    Row {
        id: row

        anchors.centerIn: parent
        spacing: 7

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            symbol: root.symbol
            color: root.ink
            size: 15
        }
        Txt {
            anchors.verticalCenter: parent.verticalCenter
            text: root.text
            color: root.ink
            size: Theme.smallSize
            weight: Font.DemiBold
            Accessible.ignored: true
        }
    }

    Accessible.role: Accessible.StaticText
    Accessible.name: root.text
}
