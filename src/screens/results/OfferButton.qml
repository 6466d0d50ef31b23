import QtQuick

// One way to take the offer up, or to decline it.
GhostButton {
    id: root

    required property int index
    required property string label
    required property bool declines
    required help

    objectName: "offer" + index
    // The bars themselves say where Tab goes.
    focusPolicy: Qt.ClickFocus
    text: label
    boxed: !declines
    tint: declines ? Theme.ink2 : index === 0 ? Theme.lavenderInk : Theme.blueInk

    Accessible.focusable: true
}
