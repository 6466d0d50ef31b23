import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// What an open scan found and moved, and the way back to it.
ColumnLayout {
    id: root

    required property ScanRow row
    readonly property int mostRows: 8

    spacing: Theme.space3

    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.space2

        Txt {
            objectName: "junk" + root.row.index
            text: root.row.junk
            size: Theme.rowSize
            color: Theme.ink2
        }
        Txt {
            visible: root.row.movedInto !== ""
            text: "\u00b7"
            size: Theme.rowSize
            color: Theme.ink3
            Accessible.ignored: true
        }
        Txt {
            Layout.fillWidth: true
            text: root.row.movedInto
            size: Theme.rowSize
            color: Theme.ink2
            elide: Text.ElideRight
        }
        GhostButton {
            objectName: "putOnScreen" + root.row.index
            symbol: "arrow.uturn.backward"
            text: root.row.history.putOnScreenLabel
            boxed: true
            tint: Theme.lavenderInk
            enabled: root.row.fileStands
            focusPolicy: root.row.controlFocus
            onClicked: root.row.history.putOnScreen(root.row.index)
        }
    }
    SectionLabel {
        Layout.fillWidth: true
        visible: root.row.movedTitle !== ""
        text: root.row.movedTitle
    }
    Rectangle {
        Layout.fillWidth: true
        visible: root.row.movedTitle !== ""
        implicitHeight: list.height + 10
        radius: Theme.rowRadius + 2
        color: Theme.field
        border.width: 1
        border.color: Theme.line

        RowList {
            id: list

            objectName: "moved" + root.row.index
            y: 5
            width: parent.width
            height: Math.min(count, root.mostRows) * Theme.rowHeight
            name: root.row.history.movedName
            activeFocusOnTab: root.row.controlFocus === Qt.StrongFocus
            model: root.row.messages
            currentIndex: 0

            delegate: MovedRow {}
        }
    }
    Item {
        implicitHeight: Theme.space1
    }
}
