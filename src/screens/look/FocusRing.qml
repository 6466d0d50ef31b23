import QtQuick

// Shows where the keyboard is; lies a little outside its parent.
Rectangle {
    id: root

    required property Item control
    property int around: Theme.buttonRadius
    property int gap: 3

    anchors.fill: parent
    anchors.margins: -gap
    radius: around + gap
    color: "transparent"
    border.width: 2
    border.color: Theme.lavenderInk
    visible: control.activeFocus && Theme.keyboardLeads

    Accessible.ignored: true
}
