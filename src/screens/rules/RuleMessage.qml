import QtQuick
import Brindlet.Screens

// One message that an open rule covers.
Item {
    id: root

    required property RuleListRow row
    readonly property bool ticked: row.tickSymbol === "checkmark.square.fill"

    implicitHeight: Theme.rowHeight

    TickSymbol {
        id: tick

        anchors.verticalCenter: parent.verticalCenter
        x: 46
        symbol: root.row.tickSymbol
        hovered: root.row.isHovered

        HoverHandler {
            id: hover
        }
        HelpSpot {
            control: tick
            text: root.row.tickHelp
            wanted: hover.hovered || root.row.hasKeyboard
        }
    }
    Column {
        anchors.verticalCenter: parent.verticalCenter
        anchors.left: tick.right
        anchors.leftMargin: 13
        anchors.right: parent.right
        anchors.rightMargin: Theme.space4
        spacing: 1

        Txt {
            width: parent.width
            text: root.row.title
            size: Theme.rowSize
            weight: Font.Medium
            color: root.ticked ? Theme.ink : Theme.ink2
            horizontalAlignment: Text.AlignLeft
            maximumLineCount: 1
            elide: Text.ElideRight
            Accessible.ignored: true
        }
        Txt {
            width: parent.width
            text: root.row.detail
            size: 11
            color: Theme.ink3
            horizontalAlignment: Text.AlignLeft
            maximumLineCount: 1
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }
}
