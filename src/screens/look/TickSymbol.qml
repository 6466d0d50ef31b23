import QtQuick

// The picture of a tick box.
Symbol {
    id: root

    property bool hovered: false

    size: 20
    color: symbol === "checkmark.square.fill" || symbol === "minus.square.fill" ? Theme.lavenderInk
         : hovered && symbol === "square" ? Theme.ink2 : Theme.ink3
}
