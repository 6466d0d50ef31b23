import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// Offers to take the last sweep back.
FloatingBar {
    id: root

    required property UndoModel model
    readonly property alias button: button

    implicitWidth: row.implicitWidth + 32
    implicitHeight: 54
    shown: model.shown

    RowLayout {
        id: row

        anchors.fill: parent
        anchors.leftMargin: 18
        anchors.rightMargin: 14
        spacing: Theme.space3

        Symbol {
            symbol: root.model.symbol
            color: Theme.lavenderInk
            size: 20
        }
        Txt {
            objectName: "undoText"
            Layout.fillWidth: true
            Layout.rightMargin: Theme.space5
            text: root.model.text
            weight: Font.DemiBold
            maximumLineCount: 1
            elide: Text.ElideRight
        }
        GhostButton {
            id: button

            objectName: "undo"
            focusPolicy: Qt.ClickFocus
            text: root.model.label
            help: root.model.help
            boxed: true
            tint: Theme.lavenderInk
            onClicked: root.model.press()

            Accessible.focusable: true
        }
    }
}
