import QtQuick
import Brindlet.Screens

// One message that a scan had moved.
Item {
    id: root

    required property string subject
    required property string sender
    readonly property RowList list: ListView.view as RowList
    readonly property bool hasKeyboard: Theme.keyboardLeads && ListView.isCurrentItem
                                        && list !== null && list.activeFocus

    width: list ? list.width : 0
    implicitHeight: Theme.rowHeight

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: 5
        anchors.rightMargin: 12
        anchors.topMargin: 1
        anchors.bottomMargin: 1
        radius: Theme.rowRadius
        color: "transparent"
        border.width: root.hasKeyboard ? 2 : 0
        border.color: Theme.lavenderInk
    }
    Column {
        anchors.verticalCenter: parent.verticalCenter
        x: 15
        width: parent.width - x - 26
        spacing: 1

        Txt {
            width: parent.width
            text: root.subject
            size: Theme.rowSize
            weight: Font.Medium
            horizontalAlignment: Text.AlignLeft
            elide: Text.ElideRight
            Accessible.ignored: true
        }
        Txt {
            width: parent.width
            text: root.sender
            size: 11
            color: Theme.ink3
            horizontalAlignment: Text.AlignLeft
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }

    Accessible.role: Accessible.ListItem
    Accessible.name: root.subject + ", " + root.sender
}
