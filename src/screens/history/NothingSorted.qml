import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// Stands where there is no past scan.
ColumnLayout {
    id: root

    required property string text

    spacing: Theme.space5

    Hero {
        Layout.alignment: Qt.AlignHCenter
        Layout.topMargin: 2 * Theme.space7
        symbol: "tray"
    }
    Txt {
        objectName: "nothing"
        Layout.fillWidth: true
        Layout.bottomMargin: 2 * Theme.space7
        horizontalAlignment: Text.AlignHCenter
        text: root.text
        size: 15
        color: Theme.ink2
    }
}
