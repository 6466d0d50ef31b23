import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

FocusScope {
    id: root

    required property PickModel model
    readonly property bool hasAccounts: model.content === PickModel.Accounts

    objectName: "pickScreen"
    focus: true

    Keys.onEscapePressed: root.model.back()

    ColumnLayout {
        anchors.horizontalCenter: parent.horizontalCenter
        anchors.top: parent.top
        anchors.bottom: parent.bottom
        anchors.topMargin: Theme.space5
        anchors.bottomMargin: Theme.space5
        width: Math.min(root.width - 2 * Theme.space6, Theme.measure)
        spacing: Theme.space3

        BackButton {
            objectName: "back"
            help: root.model.backName
            onClicked: root.model.back()
        }
        ColumnLayout {
            Layout.fillWidth: true
            Layout.bottomMargin: Theme.space1
            spacing: 6

            PageTitle {
                text: root.model.title
            }
            Txt {
                text: root.model.text
                size: Theme.rowSize
                color: Theme.ink2
            }
        }
        Banner {
            objectName: "vanishedBar"
            Layout.fillWidth: true
            visible: root.model.vanished !== ""
            symbol: root.model.vanishedSymbol
            text: root.model.vanished

            GhostButton {
                objectName: "dismiss"
                symbol: root.model.dismissSymbol
                help: root.model.dismissName
                onClicked: root.model.dismissVanished()
            }
        }
        PickNotice {
            Layout.fillWidth: true
            Layout.fillHeight: true
            visible: !root.hasAccounts
            model: root.model
        }
        RowLayout {
            Layout.fillWidth: true
            Layout.fillHeight: true
            visible: root.hasAccounts
            spacing: Theme.space5

            FolderCard {
                Layout.fillWidth: true
                Layout.fillHeight: true
                model: root.model
                focus: true
            }
            PickChoices {
                Layout.preferredWidth: 268
                Layout.fillHeight: true
                model: root.model
            }
        }
    }
}
