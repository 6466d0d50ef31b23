import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// What comes of one answer.
Rectangle {
    id: root

    required property string title
    required property string text
    property string symbol: ""
    property bool promising: false

    implicitHeight: words.implicitHeight + 2 * Theme.space3
    radius: Theme.mainButtonRadius
    color: promising ? Theme.wash(Theme.green, Theme.barStrength) : Theme.hover
    border.width: 1
    border.color: promising ? Theme.wash(Theme.green, 0.3) : Theme.line

    ColumnLayout {
        id: words

        x: Theme.space4
        y: Theme.space3
        width: root.width - 2 * x
        spacing: 5

        RowLayout {
            Layout.preferredHeight: 18
            spacing: 7

            Symbol {
                visible: root.symbol !== ""
                symbol: root.symbol
                color: Theme.greenInk
                size: 17
            }
            Txt {
                text: root.title
                size: Theme.rowSize
                weight: Font.DemiBold
                color: root.promising ? Theme.greenInk : Theme.ink
            }
        }
        Txt {
            Layout.fillWidth: true
            text: root.text
            size: Theme.rowSize
            color: Theme.ink2
            wrapMode: Text.WordWrap
            lineHeight: 1.2
        }
    }
}
