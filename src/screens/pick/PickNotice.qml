import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// Stands where the mailboxes would, while there are none to show.
Item {
    id: root

    required property PickModel model
    readonly property bool finding: model.content === PickModel.Finding
    readonly property bool unreadable: model.content === PickModel.Unreadable

    ColumnLayout {
        anchors.centerIn: parent
        anchors.verticalCenterOffset: -Theme.space6
        width: 500
        spacing: 0

        Spinner {
            objectName: "finding"
            Layout.alignment: Qt.AlignHCenter
            visible: root.finding
            size: 36
        }
        Hero {
            Layout.alignment: Qt.AlignHCenter
            visible: !root.finding
            symbol: root.unreadable ? "folder.badge.questionmark" : "tray"
            tint: Theme.blueInk
        }
        Txt {
            objectName: "noticeTitle"
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: Theme.space5
            text: root.model.noticeTitle
            size: Theme.headSize
            weight: Font.DemiBold
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        Txt {
            objectName: "noticeText"
            Layout.fillWidth: true
            Layout.topMargin: Theme.space2
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WordWrap
            lineHeight: 1.35
            text: root.model.noticeText
            color: Theme.ink2
        }
        Row {
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: Theme.space5
            spacing: Theme.space3

            PrimaryButton {
                objectName: "openSettings"
                visible: text !== ""
                text: root.model.openSettingsLabel
                onClicked: root.model.openSettings()
            }
            PrimaryButton {
                objectName: "openMail"
                visible: text !== ""
                text: root.model.openMailLabel
                onClicked: root.model.openMail()
            }
            GhostButton {
                objectName: "checkAgain"
                visible: text !== ""
                text: root.model.checkAgainLabel
                boxed: true
                tint: Theme.ink
                implicitHeight: 40
                implicitWidth: 124
                onClicked: root.model.checkAgain()
            }
        }
    }
}
