import QtQuick
import Brindlet.Screens

// One message, or the heading over those that stay put.
Item {
    id: root

    required property bool heading
    required property string description
    required property string subject
    required property string sender
    required property string tickSymbol
    required property bool canTick
    required property string mark
    required property int markTone
    readonly property bool ticked: tickSymbol === "checkmark.square.fill"
    readonly property RowList list: ListView.view as RowList
    readonly property bool hasKeyboard: Theme.keyboardLeads && ListView.isCurrentItem
                                        && list !== null && list.activeFocus

    width: list ? list.width : 0
    implicitHeight: Theme.rowHeight

    HoverHandler {
        id: hover
    }
    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: 6
        anchors.rightMargin: 12
        anchors.topMargin: 1
        anchors.bottomMargin: 1
        radius: Theme.rowRadius
        color: hover.hovered && !root.heading ? Theme.hover : "transparent"
        border.width: root.hasKeyboard ? 2 : 0
        border.color: Theme.lavenderInk
    }
    Symbol {
        id: tick

        visible: !root.heading
        anchors.verticalCenter: parent.verticalCenter
        x: 15
        size: 20
        symbol: root.tickSymbol
        color: root.ticked ? Theme.lavenderInk : Theme.ink3
    }
    Column {
        anchors.verticalCenter: parent.verticalCenter
        anchors.left: root.heading ? parent.left : tick.right
        anchors.leftMargin: root.heading ? 20 : 13
        anchors.right: tag.left
        anchors.rightMargin: Theme.space3
        spacing: 1

        Txt {
            width: parent.width
            text: root.subject
            size: root.heading ? Theme.smallSize : Theme.rowSize
            weight: root.heading ? Font.DemiBold : Font.Medium
            color: root.heading ? Theme.greenInk : root.ticked ? Theme.ink : Theme.ink2
            elide: Text.ElideRight
            Accessible.ignored: true
        }
        Txt {
            visible: !root.heading
            width: parent.width
            text: root.sender
            size: 11
            color: Theme.ink3
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }
    ToneTag {
        id: tag

        anchors.verticalCenter: parent.verticalCenter
        anchors.right: parent.right
        anchors.rightMargin: 26
        text: root.mark
        tone: root.markTone
        Accessible.ignored: true
    }

    Accessible.role: root.heading ? Accessible.Heading : Accessible.ListItem
    Accessible.name: root.heading ? root.subject : root.subject + ", " + root.sender
    Accessible.description: root.description
    Accessible.checkable: root.canTick
    Accessible.checked: root.ticked
}
