import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

HeroScreen {
    id: root

    required property PermissionModel model

    objectName: "permissionScreen"
    symbol: model.symbol
    title: model.title
    text: model.text
    tint: Theme.blue
    ink: Theme.blueInk

    Keys.onEscapePressed: root.model.back()

    Card {
        Layout.alignment: Qt.AlignHCenter
        Layout.topMargin: Theme.space5
        implicitWidth: 470
        implicitHeight: steps.implicitHeight + 2 * Theme.space4

        ColumnLayout {
            id: steps

            anchors.left: parent.left
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            anchors.margins: Theme.space4
            spacing: Theme.space3

            Repeater {
                model: root.model.steps

                Step {
                    required property int index

                    Layout.fillWidth: true
                    number: index + 1
                }
            }
        }
    }
    Row {
        Layout.alignment: Qt.AlignHCenter
        Layout.topMargin: Theme.space6
        spacing: Theme.space3

        PrimaryButton {
            objectName: "openSettings"
            text: root.model.openSettingsLabel
            focus: true
            onClicked: root.model.openSettings()
        }
        GhostButton {
            objectName: "check"
            text: root.model.checkLabel
            boxed: true
            tint: Theme.ink
            implicitHeight: 40
            implicitWidth: 96
            onClicked: root.model.check()
        }
    }
}
