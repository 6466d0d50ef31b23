import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Brindlet.Screens

// The line of a category that is always there.
T.Button {
    id: root

    required property string label
    required property string count
    required property string badge
    required property int badgeTone
    required property string description
    required property string chevron

    implicitHeight: Theme.headerHeight
    leftPadding: 20
    rightPadding: 20
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true

    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    background: Rectangle {
        radius: Theme.cardRadius
        color: root.down ? Theme.press : root.hovered ? Theme.hover : "transparent"

        FocusRing {
            control: root
            around: Theme.cardRadius
            gap: 0
        }
    }
    contentItem: RowLayout {
        spacing: Theme.space3

        Txt {
            text: root.label
            size: 15
            weight: Font.DemiBold
            Accessible.ignored: true
        }
        ToneTag {
            text: root.badge
            tone: root.badgeTone
            Accessible.ignored: true
        }
        Item {
            Layout.fillWidth: true
        }
        Txt {
            text: root.count
            weight: Font.Medium
            color: Theme.ink2
            Accessible.ignored: true
        }
        Symbol {
            Layout.leftMargin: Theme.space1
            symbol: root.chevron
            size: 16
        }
    }

    Accessible.name: root.label + ", " + root.count
    Accessible.description: root.description
    Accessible.onPressAction: root.clicked()
}
