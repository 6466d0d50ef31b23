import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// One mailbox in the picker.
Item {
    id: root

    required property int index
    required property string name
    required property string tag
    required property int tagTone
    required property string note
    required property string status
    required property string statusTag
    required property int statusTone
    required property bool selectable
    required property bool selected
    required property string description
    readonly property RowList list: ListView.view as RowList
    readonly property bool hasKeyboard: Theme.keyboardLeads && ListView.isCurrentItem
                                        && list !== null && list.activeFocus

    width: list ? list.width : 0
    implicitHeight: 56

    Rectangle {
        anchors.fill: parent
        anchors.leftMargin: 6
        anchors.rightMargin: 12
        anchors.topMargin: 1
        anchors.bottomMargin: 1
        radius: Theme.rowRadius
        color: root.selected ? Theme.wash(Theme.lavender, Theme.washStrength)
             : hover.hovered && root.selectable ? Theme.hover : "transparent"
        border.width: root.hasKeyboard ? 2 : 0
        border.color: Theme.lavenderInk
    }
    HoverHandler {
        id: hover
    }
    HelpSpot {
        control: root
        text: label.truncated ? root.name : ""
        wanted: hover.hovered
    }
    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 18
        anchors.rightMargin: 26
        spacing: Theme.space3

        Symbol {
            symbol: root.selected ? "largecircle.fill.circle" : "circle"
            opacity: root.selectable ? 1 : 0.45
            color: root.selected ? Theme.lavenderInk : Theme.ink3
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 2

            RowLayout {
                spacing: Theme.space2

                Txt {
                    id: label

                    // The tag keeps its place; a long name gives way.
                    Layout.maximumWidth: root.width - 290
                    text: root.name
                    weight: root.selectable ? Font.DemiBold : Font.Normal
                    color: root.selectable ? Theme.ink : Theme.ink3
                    horizontalAlignment: Text.AlignLeft
                    maximumLineCount: 1
                    elide: Text.ElideMiddle
                    Accessible.ignored: true
                }
                ToneTag {
                    text: root.tag
                    tone: root.tagTone
                    Accessible.ignored: true
                }
            }
            Txt {
                Layout.fillWidth: true
                text: root.note
                size: Theme.smallSize
                color: Theme.ink3
                elide: Text.ElideRight
                Accessible.ignored: true
            }
        }
        ColumnLayout {
            spacing: 4

            ToneTag {
                Layout.alignment: Qt.AlignRight
                text: root.statusTag
                tone: root.statusTone
                Accessible.ignored: true
            }
            Txt {
                Layout.alignment: Qt.AlignRight
                text: root.status
                size: 11
                color: Theme.ink3
                Accessible.ignored: true
            }
        }
    }

    Accessible.role: Accessible.RadioButton
    Accessible.name: root.name
    Accessible.description: root.description
    Accessible.checkable: root.selectable
    Accessible.checked: root.selected
    Accessible.onPressAction: root.list.rowChosen(root.index)
}
