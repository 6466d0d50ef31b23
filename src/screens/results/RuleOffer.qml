import QtQuick
import Brindlet.Screens

// Offers to do to others what was just done to one message. The buttons stand beside the words
// where there is room for both, or else below.
FloatingBar {
    id: root

    required property OfferModel model
    readonly property int textX: 52
    readonly property real room: width - textX - buttons.width - 2 * Theme.space4
    readonly property bool beside: question.implicitWidth <= room
                                   && why.implicitWidth <= 1.8 * room

    implicitHeight: Math.ceil(beside ? Math.max(74, words.height + 32)
                                     : words.height + buttons.height + 46)
    shown: model.shown

    // The buttons in their order, for the keyboard.
    function stops(): var {
        const all = [];
        for (let i = 0; i < repeater.count; ++i)
            all.push(repeater.itemAt(i));
        return all;
    }

    Symbol {
        x: 18
        y: root.beside ? (root.height - height) / 2 : 17
        symbol: root.model.symbol
        color: Theme.lavenderInk
        size: 22
    }
    Column {
        id: words

        x: root.textX
        y: root.beside ? Math.round((root.height - height) / 2) : 16
        width: root.beside ? root.room : root.width - x - 18
        spacing: 3

        Txt {
            id: question

            objectName: "question"
            width: parent.width
            text: root.model.question
            weight: Font.DemiBold
            elide: Text.ElideRight
        }
        Txt {
            id: why

            objectName: "explanation"
            width: parent.width
            visible: text !== ""
            text: root.model.explanation
            size: Theme.smallSize
            color: Theme.ink2
            wrapMode: Text.WordWrap
            maximumLineCount: 2
            elide: Text.ElideRight
            lineHeight: 1.15
        }
    }
    Row {
        id: buttons

        x: root.beside ? root.width - width - 14 : root.textX
        y: root.beside ? (root.height - height) / 2 : words.y + words.height + 14
        spacing: Theme.space2

        Repeater {
            id: repeater

            model: root.model.buttons

            GhostButton {
                id: button

                required property int index
                required property string label
                required help
                // The last one declines.
                readonly property bool declines: index === repeater.count - 1

                objectName: "offer" + index
                focusPolicy: Qt.ClickFocus
                text: label
                boxed: !declines
                tint: declines ? Theme.ink2 : index === 0 ? Theme.lavenderInk : Theme.blueInk
                onClicked: root.model.press(button.index)

                Accessible.focusable: true
            }
        }
    }

    Accessible.role: Accessible.AlertMessage
    Accessible.name: root.model.question
    Accessible.description: root.model.explanation
}
