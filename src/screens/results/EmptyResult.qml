import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// Why there is nothing to look at.
Card {
    id: root

    required property string text

    objectName: "emptyResult"
    implicitHeight: row.implicitHeight + 2 * Theme.space5

    RowLayout {
        id: row

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        anchors.margins: Theme.space5
        spacing: Theme.space4

        Symbol {
            symbol: "checkmark.circle"
            color: Theme.greenInk
            size: 28
        }
        Txt {
            Layout.fillWidth: true
            text: root.text
            color: Theme.ink2
            wrapMode: Text.WordWrap
            lineHeight: 1.3
        }
    }
}
