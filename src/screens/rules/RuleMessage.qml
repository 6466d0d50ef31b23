import QtQuick
import Brindlet.Screens

// One message that an open rule covers.
Item {
    id: root

    required property string subject
    required property string sender
    required property string tickSymbol
    required property string tickHelp
    required property bool hovered
    required property bool hasKeyboard
    readonly property bool ticked: tickSymbol === "checkmark.square.fill"

    height: parent.height

    TickSymbol {
        id: tick

        anchors.verticalCenter: parent.verticalCenter
        x: 46
        symbol: root.tickSymbol
        hovered: root.hovered

        HoverHandler {
            id: hover
        }
        HelpSpot {
            control: tick
            text: root.tickHelp
            wanted: hover.hovered || root.hasKeyboard
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
            text: root.subject
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
            text: root.sender
            size: 11
            color: Theme.ink3
            horizontalAlignment: Text.AlignLeft
            maximumLineCount: 1
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }
}
