import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// Why there is nothing to look at.
ColumnLayout {
    id: root

    required property string text

    spacing: Theme.space5

    Hero {
        Layout.alignment: Qt.AlignHCenter
        Layout.topMargin: 2 * Theme.space7
        symbol: "checkmark.circle"
        tint: Theme.greenInk
    }
    Txt {
        objectName: "nothing"
        Layout.fillWidth: true
        horizontalAlignment: Text.AlignHCenter
        text: root.text
        size: 15
        color: Theme.ink2
        wrapMode: Text.WordWrap
        lineHeight: 1.35
    }
}
