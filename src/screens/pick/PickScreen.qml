import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

FocusScope {
    id: root

    required property PickModel model
    readonly property bool hasAccounts: model.content === PickModel.Accounts
    // What the page above leaves of the window, down to its foot.
    readonly property real room: page.height - Theme.space5 - Theme.space6 - content.y

    objectName: "pickScreen"
    focus: true

    Keys.onEscapePressed: root.model.back()

    ScrollPage {
        id: page

        objectName: "pickPage"
        anchors.fill: parent

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

            Accessible.role: Accessible.AlertMessage
            Accessible.name: root.model.vanished
        }
        GmailNotice {
            Layout.fillWidth: true
            model: root.model.gmail
        }
        Item {
            id: content

            Layout.fillWidth: true
            Layout.preferredHeight: Math.floor(Math.max(root.room, root.hasAccounts
                                                                   ? choices.implicitHeight : 0))

            PickNotice {
                anchors.fill: parent
                visible: !root.hasAccounts
                model: root.model
            }
            RowLayout {
                anchors.fill: parent
                visible: root.hasAccounts
                spacing: Theme.space5

                ColumnLayout {
                    Layout.fillWidth: true
                    Layout.fillHeight: true
                    spacing: Theme.space3

                    FolderCard {
                        Layout.fillWidth: true
                        Layout.fillHeight: true
                        model: root.model
                        focus: true
                    }
                    IntentNotice {
                        Layout.fillWidth: true
                        model: root.model.intent
                    }
                }
                PickChoices {
                    id: choices

                    Layout.preferredWidth: 268
                    Layout.fillHeight: true
                    model: root.model
                }
            }
        }
    }
}
