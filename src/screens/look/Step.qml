import QtQuick
import QtQuick.Layouts

// One numbered line of instructions, tied to the next one where one follows.
RowLayout {
    id: root

    required property int number
    required property string text
    // The next one stands this far below.
    property bool followed: false
    readonly property int gap: Theme.space5

    spacing: Theme.space3

    Rectangle {
        implicitWidth: 28
        implicitHeight: 28
        radius: 14
        color: Theme.wash(Theme.blue, Theme.washStrength)
        Accessible.ignored: true

        Rectangle {
            anchors.horizontalCenter: parent.horizontalCenter
            anchors.top: parent.bottom
            anchors.topMargin: 4
            width: 2
            height: root.gap - 8
            radius: 1
            visible: root.followed
            color: Theme.line
            Accessible.ignored: true
        }
        Txt {
            anchors.centerIn: parent
            text: root.number
            size: Theme.smallSize
            weight: Font.DemiBold
            color: Theme.blueInk
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
