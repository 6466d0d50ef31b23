import QtQuick

// A small word in a rounded box.
Rectangle {
    id: root

    required property string text
    property color tint: Theme.lavender
    property color ink: Theme.lavenderInk

    implicitWidth: word.implicitWidth + 14
    implicitHeight: 18
    radius: height / 2
    color: Theme.wash(root.tint, Theme.washStrength)
    visible: text !== ""

    Txt {
        id: word

        anchors.centerIn: parent
        text: root.text
        color: root.ink
        size: Theme.microSize
        weight: Font.DemiBold
        font.letterSpacing: 0.6
        Accessible.ignored: true
    }

    Accessible.role: Accessible.StaticText
    Accessible.name: root.text
    Accessible.ignored: root.text === ""
}
