import QtQuick
import QtQuick.Layouts

// A bar across the page that something went wrong, or changed.
Rectangle {
    id: root

    required property string symbol
    required property string text
    property string title: ""
    // What went wrong with it; stands below the text.
    property string trouble: ""
    property color tint: Theme.orange
    property color ink: Theme.orangeInk
    default property alias controls: side.data

    implicitHeight: Math.max(48, words.implicitHeight + 2 * Theme.space3)
    radius: Theme.cardRadius
    color: Theme.wash(root.tint, Theme.barStrength)
    border.width: 1
    border.color: Theme.wash(root.tint, 0.3)

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.space4
        anchors.rightMargin: Theme.space3
        spacing: Theme.space3

        Symbol {
            symbol: root.symbol
            color: root.ink
            size: 20
        }
        ColumnLayout {
            id: words

            Layout.fillWidth: true
            spacing: 3

            Txt {
                Layout.fillWidth: true
                visible: text !== ""
                text: root.title
                weight: Font.DemiBold
            }
            Txt {
                Layout.fillWidth: true
                text: root.text
                size: Theme.rowSize
                color: root.title === "" ? Theme.ink : Theme.ink2
                // A folder's name may be one long word.
                wrapMode: Text.Wrap
            }
            Txt {
                objectName: root.objectName + "Trouble"
                Layout.fillWidth: true
                visible: text !== ""
                text: root.trouble
                size: Theme.rowSize
                color: Theme.orangeInk
                wrapMode: Text.Wrap
            }
        }
        Row {
            id: side

            spacing: Theme.space2
        }
    }
}
