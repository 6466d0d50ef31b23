import QtQuick
import QtQuick.Layouts

// One numbered line of instructions.
RowLayout {
    id: root

    required property int number
    required property string text

    spacing: Theme.space3

    Rectangle {
        implicitWidth: 26
        implicitHeight: 26
        radius: 13
        color: Theme.wash(Theme.lavender, Theme.washStrength)
        Accessible.ignored: true

        Txt {
            anchors.centerIn: parent
            text: root.number
            size: Theme.smallSize
            weight: Font.DemiBold
            color: Theme.lavenderInk
            Accessible.ignored: true
        }
    }
    Txt {
        Layout.fillWidth: true
        text: root.text
        color: Theme.ink
        Accessible.name: root.number + ". " + root.text
    }
}
