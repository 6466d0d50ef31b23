import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// The accounts, and the mailboxes of the chosen one.
FocusScope {
    id: root

    required property PickModel model

    Card {
        anchors.fill: parent
    }
    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        RowLayout {
            Layout.fillWidth: true
            Layout.margins: Theme.space3
            spacing: Theme.space3

            MenuPicker {
                objectName: "accounts"
                Layout.preferredWidth: 280
                choices: root.model.accounts
                label: root.model.accountName
                onAsked: index => root.model.chooseAccount(index)
            }
            Item {
                Layout.fillWidth: true
            }
            Row {
                objectName: "checking"
                Layout.rightMargin: Theme.space2
                visible: root.model.checking !== ""
                spacing: Theme.space2

                Spinner {
                    anchors.verticalCenter: parent.verticalCenter
                }
                Txt {
                    anchors.verticalCenter: parent.verticalCenter
                    text: root.model.checking
                    size: Theme.smallSize
                    color: Theme.ink2
                }
            }
        }
        Rectangle {
            Layout.fillWidth: true
            implicitHeight: 1
            color: Theme.line
        }
        RowList {
            objectName: "folders"
            Layout.fillWidth: true
            Layout.fillHeight: true
            Layout.topMargin: 5
            Layout.bottomMargin: 5
            focus: true
            name: root.model.foldersName
            model: root.model.folders
            // Where the arrow keys begin.
            currentIndex: Math.max(0, root.model.folders.chosen)

            onRowChosen: row => root.model.chooseFolder(row)
            onRowTapped: row => root.model.chooseFolder(row)

            delegate: FolderRow {}
        }
    }
}
