import QtQuick

// A heading in small capitals with an optional note beside it.
Item {
    id: root

    required property string text
    property string note: ""

    implicitHeight: Math.max(label.implicitHeight, words.implicitHeight)

    Txt {
        id: label

        anchors.verticalCenter: parent.verticalCenter
        text: root.text
        size: 11
        weight: Font.DemiBold
        font.letterSpacing: 0.9
        color: Theme.ink2
        Accessible.ignored: true
    }
    Txt {
        id: words

        anchors.baseline: label.baseline
        anchors.left: label.right
        anchors.leftMargin: Theme.space3
        anchors.right: parent.right
        text: root.note
        size: Theme.smallSize
        color: Theme.ink3
        elide: Text.ElideRight
        Accessible.ignored: true
    }

    Accessible.role: Accessible.Heading
    Accessible.name: root.text
    Accessible.description: root.note
}
