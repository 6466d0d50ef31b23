import QtQuick
import QtQuick.Layouts

// A centred page: a hero, a title, a text, and content beneath.
FocusScope {
    id: root

    required property string symbol
    required property string title
    required property string text
    property color tint: Theme.lavender
    property color ink: Theme.lavenderInk
    property int titleSize: Theme.displaySize
    property int textWidth: 470
    default property alias content: beneath.data

    focus: true

    Glow {
        anchors.horizontalCenter: parent.horizontalCenter
        y: column.y + 40 - height / 2
        size: 900
        tint: Theme.wash(root.tint, Theme.glowStrength)
    }
    ColumnLayout {
        id: column

        anchors.centerIn: parent
        anchors.verticalCenterOffset: -6
        spacing: 0

        Hero {
            Layout.alignment: Qt.AlignHCenter
            symbol: root.symbol
            tint: root.ink
        }
        PageTitle {
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: Theme.space5
            text: root.title
            size: root.titleSize
        }
        Txt {
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: Theme.space2
            Layout.preferredWidth: root.textWidth
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WordWrap
            lineHeight: 1.35
            size: 15
            color: Theme.ink2
            text: root.text
        }
        ColumnLayout {
            id: beneath

            Layout.alignment: Qt.AlignHCenter
            spacing: 0
        }
    }
}
