import QtQuick

// A heading in small capitals, with a note beside it.
Row {
    id: root

    required property string text
    property string note: ""

    spacing: Theme.space2

    Txt {
        id: label

        text: root.text
        size: 11
        weight: Font.DemiBold
        font.letterSpacing: 0.8
        color: Theme.ink2

        Accessible.role: Accessible.Heading
    }
    Txt {
        anchors.baseline: label.baseline
        visible: text !== ""
        text: root.note
        size: Theme.smallSize
        color: Theme.ink3
    }
}
