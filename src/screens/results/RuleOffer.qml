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

    function adopt(button: OfferButton): void {
        button.clicked.connect(() => root.model.press(button.index));
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
            // Led by a mark of direction: it may begin with words in a script from the right.
            text: root.model.explanation === "" ? "" : "\u200e" + root.model.explanation
            size: Theme.smallSize
            color: Theme.ink2
            wrapMode: Text.WordWrap
            maximumLineCount: 2
            elide: Text.ElideRight
            lineHeight: 1.15
            Accessible.name: root.model.explanation
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
            onItemAdded: (index, item) => root.adopt(item as OfferButton)

            OfferButton {}
        }
    }

    Accessible.role: Accessible.AlertMessage
    Accessible.name: root.model.question
    Accessible.description: root.model.explanation
}
