import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// One category that corrections have flipped, and the two ways to stop that.
ColumnLayout {
    id: root

    required property int index
    required property string badge
    required property int badgeTone
    required property string category
    required property string line
    required property bool stopping
    required property string stopDescription
    // The model itself, for the buttons.
    required property CalibrationRowsModel rows

    spacing: 0

    Rectangle {
        Layout.fillWidth: true
        implicitHeight: 1
        visible: root.index > 0
        color: Theme.line
    }
    RowLayout {
        Layout.fillWidth: true
        Layout.leftMargin: Theme.space4
        Layout.rightMargin: 12
        Layout.topMargin: 11
        Layout.bottomMargin: 11
        spacing: Theme.space3

        ToneTag {
            Layout.alignment: Qt.AlignTop
            Layout.topMargin: 1
            Layout.preferredWidth: 46
            text: root.badge
            tone: root.badgeTone
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 3

            Txt {
                Layout.fillWidth: true
                text: root.category
                weight: Font.DemiBold
                elide: Text.ElideRight
            }
            Txt {
                Layout.fillWidth: true
                text: root.line
                size: Theme.smallSize
                color: Theme.ink3
                elide: Text.ElideRight
            }
        }
        GhostButton {
            objectName: "stop" + root.index
            text: root.rows.stopLabel
            boxed: true
            onClicked: root.rows.toggleStop(root.index)
            Accessible.description: root.stopDescription
        }
    }
    RowLayout {
        Layout.fillWidth: true
        Layout.leftMargin: Theme.space4
        Layout.rightMargin: 12
        Layout.bottomMargin: 12
        visible: root.stopping
        spacing: Theme.space2

        Item {
            Layout.fillWidth: true
        }
        GhostButton {
            objectName: "mute" + root.index
            text: root.rows.muteLabel
            boxed: true
            onClicked: root.rows.mute(root.index)
        }
        GhostButton {
            objectName: "forget" + root.index
            text: root.rows.forgetLabel
            boxed: true
            tint: Theme.orangeInk
            onClicked: root.rows.forget(root.index)
        }
    }
}
