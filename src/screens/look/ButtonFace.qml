import QtQuick

// What stands on a button: a symbol, a word, or both.
Item {
    id: root

    property string symbol: ""
    property string text: ""
    property color tint: Theme.ink
    property int symbolSize: 16
    property int size: Theme.rowSize
    property int weight: Font.Medium
    // At the left edge instead of in the middle.
    property bool leading: false

    implicitWidth: row.implicitWidth
    implicitHeight: row.implicitHeight

    Row {
        id: row

        x: root.leading ? 0 : (root.width - width) / 2
        anchors.verticalCenter: parent.verticalCenter
        spacing: 7

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.symbol !== ""
            symbol: root.symbol
            color: root.tint
            size: root.symbolSize
        }
        Txt {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.text !== ""
            text: root.text
            color: root.tint
            size: root.size
            weight: root.weight
            Accessible.ignored: true
        }
    }
}
