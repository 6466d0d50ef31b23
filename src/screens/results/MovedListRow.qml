import QtQuick
import Brindlet.Screens

// One message that has left the folder; ticked, it is to be put back. The list hands on what the
// mouse does, and the keyboard never enters a row.
Item {
    id: root

    required property int index
    required property string title
    required property string detail
    required property string tickSymbol
    readonly property RowList list: ListView.view as RowList
    readonly property MovedListModel messages: list !== null ? list.model as MovedListModel : null
    readonly property bool ticked: tickSymbol === "checkmark.square.fill"
    readonly property bool hasKeyboard: Theme.keyboardLeads && ListView.isCurrentItem
                                        && list !== null && list.activeFocus

    // More than any line holds: to lay out all of an endless subject would stop the scrolling.
    readonly property int mostLetters: 1000

    width: list ? list.width : 0
    implicitHeight: Theme.rowHeight

    HoverHandler {
        id: hover
    }
    Rectangle {
        objectName: "movedRow" + root.index
        anchors.fill: parent
        anchors.leftMargin: 6
        anchors.rightMargin: 6
        anchors.topMargin: 1
        anchors.bottomMargin: 1
        radius: Theme.rowRadius
        color: hover.hovered ? Theme.hover : "transparent"
        border.width: root.hasKeyboard ? 2 : 0
        border.color: Theme.lavenderInk
    }
    TickSymbol {
        id: box

        x: 15
        anchors.verticalCenter: parent.verticalCenter
        symbol: root.tickSymbol
        hovered: hover.hovered
    }
    Column {
        anchors.verticalCenter: parent.verticalCenter
        x: 48
        width: parent.width - x - 26
        spacing: 1

        Txt {
            objectName: "movedTitle" + root.index
            width: parent.width
            text: root.title.slice(0, root.mostLetters)
            size: Theme.rowSize
            weight: Font.Medium
            color: root.ticked ? Theme.ink : Theme.ink2
            // A subject in a script from the right stays beside its box too.
            horizontalAlignment: Text.AlignLeft
            maximumLineCount: 1
            elide: Text.ElideRight
            Accessible.ignored: true
        }
        Txt {
            visible: text !== ""
            width: parent.width
            text: root.detail.slice(0, root.mostLetters)
            size: 11
            color: Theme.ink3
            horizontalAlignment: Text.AlignLeft
            maximumLineCount: 1
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }

    Accessible.role: Accessible.CheckBox
    Accessible.name: root.detail === "" ? root.title : root.title + ", " + root.detail
    Accessible.focusable: true
    Accessible.checkable: true
    Accessible.checked: root.ticked
    Accessible.onPressAction: root.messages.tick(root.index)
    Accessible.onToggleAction: root.messages.tick(root.index)
}
