import QtQuick

// What stands on a button: a symbol, a word, or both.
Item {
    id: root

    property string symbol: ""
    property string text: ""
    property color tint: Theme.ink
    property color symbolTint: tint
    property int symbolSize: 16
    property int size: Theme.rowSize
    property int weight: Font.Medium
    // At the left edge instead of in the middle.
    property bool leading: false
    // The word stands where it would with a symbol.
    property bool indented: false
    readonly property bool truncated: label.truncated
    readonly property real lead: symbol === "" && !indented
                                 ? 0 : symbolSize + (text === "" ? 0 : row.spacing)

    implicitWidth: Math.ceil(lead + label.implicitWidth)
    implicitHeight: row.implicitHeight

    Row {
        id: row

        x: root.leading ? 0 : (root.width - width) / 2
        anchors.verticalCenter: parent.verticalCenter
        spacing: 7

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.symbol !== "" || root.indented
            symbol: root.symbol
            color: root.symbolTint
            size: root.symbolSize
        }
        Txt {
            id: label

            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(Math.ceil(implicitWidth), root.width - root.lead)
            visible: root.text !== ""
            text: root.text
            color: root.tint
            size: root.size
            weight: root.weight
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }
}
