import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// The mailboxes to sort, and what of them is not there any more.
ColumnLayout {
    id: root

    required property AutomaticModel model

    spacing: Theme.space2

    SectionLabel {
        objectName: "mailboxesLabel"
        Layout.fillWidth: true
        Layout.leftMargin: Theme.space1
        text: root.model.mailboxesTitle
        note: root.model.mailboxesNote
    }
    Card {
        Layout.fillWidth: true
        Layout.fillHeight: true
        // A few rows are always to be seen; what else there is may push the page.
        Layout.minimumHeight: 200

        AccountPicker {
            id: list

            objectName: "mailboxes"
            anchors.fill: parent
            anchors.topMargin: 5
            anchors.bottomMargin: 5
            visible: count > 0
            name: root.model.mailboxesName
            mailboxes: root.model.mailboxes
        }
        Column {
            anchors.centerIn: parent
            width: 260
            visible: noAccounts.text !== ""
            spacing: Theme.space3

            Symbol {
                anchors.horizontalCenter: parent.horizontalCenter
                symbol: "person.crop.circle"
                color: Theme.ink3
                size: 30
            }
            Txt {
                id: noAccounts

                objectName: "noAccounts"
                width: parent.width
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.WordWrap
                lineHeight: 1.35
                text: root.model.noAccounts
                color: Theme.ink2
            }
        }
    }
    Banner {
        objectName: "goneBar"
        Layout.fillWidth: true
        Layout.topMargin: Theme.space1
        visible: root.model.gone !== ""
        symbol: root.model.goneSymbol
        text: root.model.gone

        GhostButton {
            objectName: "removeGone"
            text: root.model.removeGoneLabel
            boxed: true
            tint: Theme.orangeInk
            onClicked: {
                // It goes, and the keyboard with it.
                if (activeFocus)
                    list.forceActiveFocus();
                root.model.removeGone();
            }
        }
    }
}
