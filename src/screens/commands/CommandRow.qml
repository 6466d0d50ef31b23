import QtQuick
import Brindlet.Screens

// A command, and the keys that do the same.
ContextMenuRow {
    id: root

    property string keys: ""

    rightPadding: keyText.visible ? keyText.width + 28 : 12
    opacity: enabled ? 1 : 0.45

    Txt {
        id: keyText

        anchors.right: parent.right
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        visible: text !== ""
        text: root.keys
        size: Theme.smallSize
        color: Theme.ink2
        Accessible.ignored: true
    }

    Accessible.description: root.keys
}
