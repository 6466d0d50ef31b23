import QtQuick

// A quiet button that turns something on and off; stays tinted while it is on.
GhostButton {
    id: root

    required property bool on

    boxed: on
    tint: on ? Theme.lavenderInk : Theme.ink2

    Accessible.checkable: true
    Accessible.checked: root.on
    Accessible.onToggleAction: root.clicked()
}
