import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// The question, what each answer means, and the panel for the app password. The answers stand
// below, whatever of it is in sight.
FocusScope {
    id: root

    required property GmailAskModel model
    readonly property bool connecting: model.connecting
    readonly property bool settled: page.settled

    objectName: "gmailAsk"
    focus: true
    implicitHeight: Math.ceil(page.contentHeight + answers.implicitHeight)

    // The button that had the keyboard may have gone off.
    onConnectingChanged: password.takeKeyboard()

    function reveal(): void {
        if (root.connecting)
            page.reveal(password);
    }

    ScrollPage {
        id: page

        anchors.top: parent.top
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: answers.top
        clip: true
        onHeightChanged: root.reveal()
        onContentHeightChanged: root.reveal()

        RowLayout {
            Layout.fillWidth: true
            Layout.bottomMargin: Theme.space1
            spacing: Theme.space4

            Rectangle {
                implicitWidth: 52
                implicitHeight: 52
                radius: Theme.cardRadius
                color: Theme.wash(Theme.lavender, Theme.washStrength)

                Symbol {
                    anchors.centerIn: parent
                    symbol: root.model.symbol
                    color: Theme.lavenderInk
                    size: 30
                }
            }
            ColumnLayout {
                Layout.fillWidth: true
                spacing: 4

                Txt {
                    Layout.fillWidth: true
                    text: root.model.title
                    size: 19
                    weight: Font.Bold
                    font.letterSpacing: -0.3
                    wrapMode: Text.WordWrap
                    Accessible.role: Accessible.Heading
                    Accessible.name: text
                }
                Txt {
                    objectName: "askedAddress"
                    Layout.fillWidth: true
                    text: root.model.address
                    size: Theme.rowSize
                    color: Theme.ink2
                    elide: Text.ElideMiddle
                }
            }
        }
        Txt {
            Layout.fillWidth: true
            text: root.model.why
            color: Theme.ink2
            wrapMode: Text.WordWrap
            lineHeight: 1.3
        }
        RowLayout {
            Layout.fillWidth: true
            Layout.topMargin: Theme.space1
            Layout.bottomMargin: Theme.space1
            spacing: Theme.space3

            AnswerCard {
                Layout.fillWidth: true
                Layout.fillHeight: true
                Layout.preferredWidth: 1
                symbol: root.model.allowSymbol
                title: root.model.allowTitle
                text: root.model.allowText
                promising: true
            }
            AnswerCard {
                Layout.fillWidth: true
                Layout.fillHeight: true
                Layout.preferredWidth: 1
                title: root.model.declineTitle
                text: root.model.declineText
            }
        }
        Repeater {
            model: root.model.promises

            SymbolText {
                required property string lead

                Layout.fillWidth: true
                symbol: lead
            }
        }
        PasswordPanel {
            id: password

            objectName: "passwordPanel"
            Layout.fillWidth: true
            Layout.topMargin: Theme.space2
            visible: root.connecting
            model: root.model
            onHeightChanged: root.reveal()
        }
    }
    GmailAskAnswers {
        id: answers

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        focus: true
        model: root.model
        onPressed: {
            if (root.connecting)
                password.takeKeyboard();
            root.model.press();
        }
    }

    Accessible.role: Accessible.Dialog
    Accessible.name: root.model.title
}
