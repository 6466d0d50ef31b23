import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// Where the person makes an app password and brings it.
Rectangle {
    id: root

    required property GmailAskModel model

    implicitHeight: body.implicitHeight + 2 * Theme.space4
    radius: Theme.cardRadius
    color: Theme.card
    border.width: 1
    border.color: Theme.line

    function takeKeyboard(): void {
        field.forceActiveFocus(Qt.TabFocusReason);
    }

    Connections {
        target: root.model

        function onPasswordKept(): void {
            field.clear();
        }
    }
    ColumnLayout {
        id: body

        x: Theme.space4
        y: Theme.space4
        width: root.width - 2 * x
        spacing: Theme.space3

        Txt {
            Layout.fillWidth: true
            text: root.model.explanation
            size: Theme.rowSize
            wrapMode: Text.WordWrap
            lineHeight: 1.25
        }
        Rectangle {
            Layout.fillWidth: true
            implicitHeight: warning.implicitHeight + 2 * Theme.space3
            radius: Theme.buttonRadius
            color: Theme.wash(Theme.orange, Theme.barStrength)
            border.width: 1
            border.color: Theme.wash(Theme.orange, 0.3)

            SymbolText {
                id: warning

                x: Theme.space3
                y: Theme.space3
                width: parent.width - 2 * x
                symbol: root.model.warningSymbol
                symbolInk: Theme.orangeInk
                text: root.model.warning
                ink: Theme.ink
            }
        }
        GhostButton {
            objectName: "openAppPasswords"
            text: root.model.openPageLabel
            boxed: true
            tint: Theme.blueInk
            implicitHeight: 36
            onClicked: root.model.openPage()
        }
        Txt {
            Layout.fillWidth: true
            Layout.topMargin: Theme.space1
            text: root.model.fieldTitle
            size: Theme.rowSize
            weight: Font.DemiBold
            wrapMode: Text.WordWrap
        }
        SecretField {
            id: field

            objectName: "appPassword"
            Layout.fillWidth: true
            label: root.model.fieldTitle
            prompt: root.model.prompt
            onTextEdited: root.model.type(field.secret())
            onAccepted: root.model.press()
        }
        Txt {
            objectName: "gmailStatus"
            Layout.fillWidth: true
            visible: text !== ""
            text: root.model.status
            size: Theme.rowSize
            weight: Font.Medium
            color: root.model.statusTone === Tone.Green ? Theme.greenInk : Theme.orangeInk
            opacity: root.model.statusTone === Tone.Green ? 1 : 0.9
            wrapMode: Text.WordWrap
            lineHeight: 1.2
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
        }
        Txt {
            Layout.fillWidth: true
            text: root.model.keychain
            size: Theme.smallSize
            color: Theme.ink3
            wrapMode: Text.WordWrap
            lineHeight: 1.2
        }
    }
}
