import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// Whether Brindlet may file the mail of a Gmail account, and what that permission means.
Rectangle {
    id: root

    required property GmailNoticeModel model
    readonly property bool good: model.tone === Tone.Green
    readonly property color tint: good ? Theme.green : Theme.orange
    readonly property color ink: good ? Theme.greenInk : Theme.orangeInk

    objectName: "gmailNotice"
    implicitHeight: body.implicitHeight + Theme.space3 + Theme.space2
    visible: model.shown
    radius: Theme.cardRadius
    color: Theme.wash(root.tint, Theme.barStrength)
    border.width: 1
    border.color: Theme.wash(root.tint, 0.3)

    ColumnLayout {
        id: body

        x: Theme.space4
        y: Theme.space3
        width: root.width - x - Theme.space3
        spacing: 0

        RowLayout {
            Layout.fillWidth: true
            spacing: Theme.space3

            Symbol {
                Layout.alignment: Qt.AlignTop
                symbol: root.model.symbol
                color: root.ink
                size: 22
                opacity: root.good ? 1 : 0.9
            }
            ColumnLayout {
                Layout.fillWidth: true
                spacing: 3

                Txt {
                    objectName: "gmailTitle"
                    Layout.fillWidth: true
                    text: root.model.title
                    weight: Font.DemiBold
                    wrapMode: Text.WordWrap
                }
                Txt {
                    Layout.fillWidth: true
                    text: root.model.text
                    size: Theme.rowSize
                    color: Theme.ink2
                    wrapMode: Text.WordWrap
                    lineHeight: 1.15
                }
            }
            GhostButton {
                objectName: "gmailControl"
                text: root.model.control
                boxed: true
                tint: root.good ? Theme.ink2 : Theme.orangeInk
                implicitHeight: 36
                onClicked: root.model.press()
            }
        }
        GhostButton {
            objectName: "gmailDisclosure"
            Layout.leftMargin: 23
            Layout.topMargin: 2
            implicitHeight: 28
            text: root.model.disclosure
            symbol: root.model.disclosureSymbol
            onClicked: root.model.toggle()

            Accessible.description: root.model.disclosureState
        }
        ColumnLayout {
            objectName: "gmailPermission"
            Layout.fillWidth: true
            Layout.leftMargin: 34
            Layout.rightMargin: Theme.space3
            Layout.topMargin: Theme.space2
            Layout.bottomMargin: Theme.space2
            visible: root.model.expanded
            spacing: Theme.space2

            Repeater {
                model: root.model.lines

                SymbolText {
                    required property string lead

                    Layout.fillWidth: true
                    symbol: lead
                    symbolInk: Theme.ink2
                }
            }
        }
    }
}
