import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// One of the two things that a run may do with what it finds.
RadioItem {
    id: root

    required property string symbol
    required property string title
    required property string detail

    objectName: "mode" + index
    implicitHeight: implicitContentHeight + 2 * padding
    padding: Theme.space3
    leftPadding: Theme.space4
    rightPadding: Theme.space4
    text: title

    background: Rectangle {
        radius: Theme.cardRadius
        color: root.chosen ? Theme.wash(Theme.lavender, Theme.dark ? 0.1 : 0.14)
             : root.down ? Theme.press : root.hovered ? Theme.hover : Theme.card
        border.width: 1
        border.color: root.chosen ? Theme.wash(Theme.lavender, 0.5) : Theme.line

        FocusRing {
            control: root
            around: Theme.cardRadius
        }
    }
    contentItem: RowLayout {
        spacing: Theme.space3

        Symbol {
            Layout.alignment: Qt.AlignTop
            symbol: root.symbol
            color: root.chosen ? Theme.lavenderInk : Theme.ink3
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 4

            Txt {
                text: root.title
                weight: Font.DemiBold
                Accessible.ignored: true
            }
            Txt {
                Layout.fillWidth: true
                text: root.detail
                size: Theme.rowSize
                color: Theme.ink2
                wrapMode: Text.WordWrap
                lineHeight: 1.2
                Accessible.ignored: true
            }
        }
    }

    Accessible.description: root.detail
}
