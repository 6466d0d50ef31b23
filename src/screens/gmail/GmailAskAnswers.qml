import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// The two answers.
FocusScope {
    id: root

    required property GmailAskModel model
    signal pressed

    implicitHeight: 72

    Rectangle {
        width: parent.width
        height: 1
        color: Theme.line
    }
    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.space5
        anchors.rightMargin: Theme.space6
        spacing: Theme.space3

        GhostButton {
            objectName: "declineGmail"
            implicitHeight: 40
            text: root.model.declineLabel
            onClicked: root.model.decline()
        }
        Item {
            Layout.fillWidth: true
        }
        Spinner {
            visible: root.model.checking
            size: 18
        }
        PrimaryButton {
            objectName: "allowGmail"
            text: root.model.label
            enabled: root.model.canPress
            focus: true
            onClicked: root.pressed()
        }
    }
}
