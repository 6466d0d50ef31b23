import QtQuick
import Brindlet.Screens

// Tells that this was looked at. The latest has help, and leads there.
Rectangle {
    id: root

    required property string text
    required property string help
    readonly property bool leads: help !== ""

    implicitWidth: word.implicitWidth + 14
    implicitHeight: 18
    radius: height / 2
    visible: text !== ""
    color: !leads ? Theme.press
         : Theme.wash(Theme.blue, hover.hovered ? Theme.boxHoverStrength : Theme.boxStrength)

    HoverHandler {
        id: hover
    }
    Txt {
        id: word

        anchors.centerIn: parent
        text: root.text
        size: 11
        weight: Font.Medium
        color: root.leads ? Theme.blueInk : Theme.ink2
        Accessible.ignored: true
    }
    HelpSpot {
        control: root
        text: root.help
        wanted: hover.hovered
    }

    Accessible.ignored: true
}
