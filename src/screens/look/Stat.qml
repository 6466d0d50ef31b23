import QtQuick

// One number with its small label under it.
Column {
    id: root

    required property string value
    required property string label

    spacing: 3

    Txt {
        anchors.horizontalCenter: parent.horizontalCenter
        text: root.value
        size: 20
        weight: Font.DemiBold
        font.letterSpacing: -0.3
        Accessible.ignored: true
    }
    Txt {
        anchors.horizontalCenter: parent.horizontalCenter
        text: root.label
        size: Theme.smallSize
        color: Theme.ink3
        Accessible.ignored: true
    }

    Accessible.role: Accessible.StaticText
    Accessible.name: root.label + ": " + root.value
}
