import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// What the program is.
Sheet {
    id: root

    required property CommandsModel model

    wanted: false
    width: 360
    height: column.implicitHeight + 2 * Theme.space6
    onDismissed: root.wanted = false
    onOpened: close.forceActiveFocus(Qt.PopupFocusReason)

    FocusScope {
        objectName: "aboutSheet"
        anchors.fill: parent
        focus: true

        Accessible.role: Accessible.Dialog
        Accessible.name: root.model.aboutLabel

        ColumnLayout {
            id: column

            anchors.centerIn: parent
            width: parent.width - 2 * Theme.space6
            spacing: 6

            Image {
                Layout.alignment: Qt.AlignHCenter
                Layout.bottomMargin: Theme.space2
                source: "qrc:/icon/brindlet-128.png"
                sourceSize.width: 128
                Layout.preferredWidth: 64
                Layout.preferredHeight: 64
                mipmap: true
                Accessible.ignored: true
            }
            Txt {
                Layout.alignment: Qt.AlignHCenter
                text: root.model.name
                size: 22
                weight: Font.Bold
                font.letterSpacing: -0.4
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }
            Txt {
                Layout.alignment: Qt.AlignHCenter
                text: root.model.version
                size: Theme.smallSize
                color: Theme.ink2
            }
            Txt {
                Layout.fillWidth: true
                Layout.topMargin: Theme.space2
                horizontalAlignment: Text.AlignHCenter
                text: root.model.text
                size: Theme.rowSize
                color: Theme.ink2
                wrapMode: Text.WordWrap
                lineHeight: 1.3
            }
            GhostButton {
                id: close

                objectName: "closeAbout"
                Layout.alignment: Qt.AlignHCenter
                Layout.topMargin: Theme.space4
                implicitWidth: 96
                text: root.model.closeLabel
                boxed: true
                onClicked: root.dismissed()
            }
        }
    }
}
