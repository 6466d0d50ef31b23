import QtQuick
import Brindlet.Screens

// One of the choices of how often.
RadioItem {
    id: root

    required property string label

    objectName: "cadence" + index
    implicitWidth: implicitContentWidth + 2 * Theme.space3
    implicitHeight: 36
    text: label

    background: Rectangle {
        radius: height / 2
        color: root.chosen ? Theme.wash(Theme.lavender, Theme.washStrength)
             : root.down ? Theme.press : root.hovered ? Theme.hover : Theme.card
        border.width: 1
        border.color: root.chosen ? Theme.wash(Theme.lavender, 0.5) : Theme.line

        FocusRing {
            control: root
            around: 18
        }
    }
    contentItem: Txt {
        text: root.text
        size: Theme.rowSize
        weight: Font.DemiBold
        color: root.chosen ? Theme.lavenderInk : Theme.ink2
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }
}
