import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// One scan in the bin.
StackRow {
    id: root

    required property string place
    required property string line
    required property string purgeLabel
    required property bool asked
    required property HistoryModel history

    objectName: "binned" + index
    width: parent ? parent.width : 0
    implicitHeight: 54

    // The row keeps the keyboard, and hands it on as it goes.
    function putBack(): void {
        root.forceActiveFocus();
        root.history.putBack(root.index);
    }

    Rectangle {
        visible: root.index > 0
        width: parent.width
        height: 1
        color: Theme.line
    }
    Rectangle {
        anchors.fill: parent
        anchors.margins: 4
        radius: Theme.rowRadius + 2
        color: "transparent"
        border.width: root.hasKeyboard ? 2 : 0
        border.color: Theme.lavenderInk
    }
    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 20
        anchors.rightMargin: 14
        spacing: Theme.space2

        ColumnLayout {
            Layout.fillWidth: true
            spacing: 2

            Txt {
                Layout.fillWidth: true
                text: root.place
                size: Theme.rowSize
                weight: Font.Medium
                color: Theme.ink2
                elide: Text.ElideMiddle
                horizontalAlignment: Text.AlignLeft
                Accessible.ignored: true
            }
            Txt {
                Layout.fillWidth: true
                text: root.line
                size: Theme.smallSize
                color: Theme.ink3
                elide: Text.ElideRight
                Accessible.ignored: true
            }
        }
        GhostButton {
            objectName: "putBack" + root.index
            text: root.history.putBackLabel
            focusPolicy: root.controlFocus
            onClicked: root.putBack()
        }
        GhostButton {
            objectName: "purge" + root.index
            text: root.purgeLabel
            help: root.history.purgeHelp
            boxed: root.asked
            tint: root.asked ? Theme.orangeInk : Theme.ink2
            focusPolicy: root.controlFocus
            onClicked: {
                if (root.asked)
                    root.forceActiveFocus();
                root.history.purge(root.index);
            }
        }
    }

    Accessible.name: root.place
    Accessible.description: root.line
}
