import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// An account, or one of its folders.
Item {
    id: root

    required property int index
    required property bool isAccount
    required property string symbol
    required property string name
    required property string note
    required property string chevron
    required property bool open
    required property bool ticked
    required property string description
    readonly property RowList list: ListView.view as RowList
    readonly property bool hasKeyboard: Theme.keyboardLeads && ListView.isCurrentItem
                                        && list !== null && list.activeFocus

    width: list ? list.width : 0
    implicitHeight: 48

    Rectangle {
        width: parent.width
        height: 1
        visible: root.isAccount && root.index > 0
        color: Theme.line
    }
    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: 6
        anchors.rightMargin: 12
        anchors.topMargin: 2
        anchors.bottomMargin: 1
        radius: Theme.rowRadius
        color: hover.hovered ? Theme.hover : "transparent"
        border.width: root.hasKeyboard ? 2 : 0
        border.color: Theme.lavenderInk
    }
    HoverHandler {
        id: hover
    }
    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: root.isAccount ? 18 : 50
        anchors.rightMargin: 26
        spacing: Theme.space3

        Symbol {
            visible: root.isAccount
            symbol: root.isAccount ? root.symbol : ""
            color: Theme.lavenderInk
            size: 20
        }
        TickSymbol {
            visible: !root.isAccount
            symbol: root.isAccount ? "" : root.symbol
            hovered: hover.hovered
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 1

            Txt {
                id: label

                Layout.fillWidth: true
                text: root.name
                size: root.isAccount ? Theme.bodySize : Theme.rowSize
                weight: root.isAccount ? Font.DemiBold : Font.Medium
                elide: Text.ElideMiddle
                horizontalAlignment: Text.AlignLeft
                Accessible.ignored: true
            }
            Txt {
                Layout.fillWidth: true
                visible: text !== ""
                text: root.note
                size: Theme.smallSize
                color: Theme.ink3
                elide: Text.ElideRight
                Accessible.ignored: true
            }
        }
        Symbol {
            visible: root.isAccount
            symbol: root.chevron
            size: 16
        }
    }
    HelpSpot {
        control: root
        text: label.truncated ? root.name : ""
        wanted: hover.hovered || root.hasKeyboard
    }

    Accessible.role: isAccount ? Accessible.Button : Accessible.CheckBox
    Accessible.name: root.name
    Accessible.description: root.description
    Accessible.focusable: true
    Accessible.checkable: !root.isAccount
    Accessible.checked: root.ticked
    Accessible.onPressAction: root.list.rowChosen(root.index)
    Accessible.onToggleAction: root.list.rowChosen(root.index)
}
