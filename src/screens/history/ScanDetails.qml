import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// What an open scan found and moved, and the way back to it.
ColumnLayout {
    id: root

    required property int scan
    required property string junk
    required property string movedInto
    required property string movedTitle
    required property MovedModel messages
    required property bool onDisk
    required property HistoryModel history
    required property int controlFocus
    readonly property int mostRows: 8

    spacing: Theme.space3

    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.space2

        Txt {
            objectName: "junk" + root.scan
            text: root.junk
            size: Theme.rowSize
            color: Theme.ink2
        }
        Txt {
            visible: root.movedInto !== ""
            text: "\u00b7"
            size: Theme.rowSize
            color: Theme.ink3
            Accessible.ignored: true
        }
        Txt {
            Layout.fillWidth: true
            text: root.movedInto
            size: Theme.rowSize
            color: Theme.ink2
            elide: Text.ElideRight
        }
        GhostButton {
            objectName: "putOnScreen" + root.scan
            symbol: "arrow.uturn.backward"
            text: root.history.putOnScreenLabel
            boxed: true
            tint: Theme.lavenderInk
            enabled: root.onDisk
            focusPolicy: root.controlFocus
            onClicked: root.history.putOnScreen(root.scan)
        }
    }
    SectionLabel {
        Layout.fillWidth: true
        visible: root.movedTitle !== ""
        text: root.movedTitle
    }
    Rectangle {
        Layout.fillWidth: true
        visible: root.movedTitle !== ""
        implicitHeight: list.height + 10
        radius: Theme.rowRadius + 2
        color: Theme.field
        border.width: 1
        border.color: Theme.line

        RowList {
            id: list

            objectName: "moved" + root.scan
            y: 5
            width: parent.width
            height: Math.min(count, root.mostRows) * Theme.rowHeight
            name: root.history.movedName
            activeFocusOnTab: root.controlFocus === Qt.StrongFocus
            model: root.messages
            currentIndex: 0

            delegate: MovedRow {}
        }
    }
    Item {
        implicitHeight: Theme.space1
    }
}
