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
    textWidth: 560
    tint: Theme.blue
    ink: Theme.blueInk

    Keys.onEscapePressed: root.model.back()

    Card {
        Layout.alignment: Qt.AlignHCenter
        Layout.topMargin: Theme.space6
        implicitWidth: 440
        implicitHeight: steps.implicitHeight + 2 * Theme.space5

        ColumnLayout {
            id: steps

            anchors.left: parent.left
            anchors.right: parent.right
            anchors.verticalCenter: parent.verticalCenter
            anchors.margins: Theme.space5
            spacing: Theme.space5

            Repeater {
                id: list

                model: root.model.steps
                onItemAdded: index => {
                    if (index > 0)
                        (list.itemAt(index - 1) as Step).followed = true;
                }

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
