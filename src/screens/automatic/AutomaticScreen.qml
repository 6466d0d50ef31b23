import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

FocusScope {
    id: root

    required property AutomaticModel model
    // What the page above leaves of the window, down to its foot.
    readonly property real room: page.height - Theme.space5 - Theme.space6 - content.y

    objectName: "automaticScreen"
    focus: true

    Keys.onEscapePressed: root.model.back()

    ScrollPage {
        id: page

        objectName: "automaticPage"
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
                Layout.fillWidth: true
                text: root.model.text
                size: Theme.rowSize
                color: Theme.ink2
                elide: Text.ElideRight
            }
        }
        ScheduleBar {
            Layout.fillWidth: true
            model: root.model
        }
        RowLayout {
            id: content

            Layout.fillWidth: true
            Layout.topMargin: Theme.space2
            Layout.preferredHeight: Math.floor(Math.max(root.room, implicitHeight))
            visible: root.model.enabled
            spacing: Theme.space5

            WatchedMailboxes {
                Layout.fillWidth: true
                Layout.fillHeight: true
                Layout.preferredWidth: 1
                model: root.model
            }
            ScheduleChoices {
                Layout.fillWidth: true
                Layout.fillHeight: true
                Layout.preferredWidth: 1
                model: root.model
            }
        }
        Hero {
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: Theme.space7
            visible: !root.model.enabled
            symbol: "clock.arrow.2.circlepath"
        }
    }
}
