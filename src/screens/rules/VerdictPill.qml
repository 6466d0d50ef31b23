import QtQuick
import QtQuick.Templates as T
import Brindlet.Screens

// The verdict of a rule; a click flips it.
T.Button {
    id: root

    required property int tone
    required property string help

    implicitWidth: implicitContentWidth + 2 * padding
    implicitHeight: 24
    padding: 3
    hoverEnabled: true

    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    background: Item {
        FocusRing {
            control: root
            around: 12
            gap: 0
        }
    }
    contentItem: ToneTag {
        text: root.text
        tone: root.tone
        border.width: root.hovered ? 1 : 0
        border.color: Theme.wash(ink, root.down ? 1 : 0.6)
        Accessible.ignored: true
    }
    HelpSpot {
        control: root
        text: root.help
        wanted: root.hovered || (root.activeFocus && Theme.keyboardLeads)
    }

    Accessible.name: root.text
    Accessible.description: root.help
    Accessible.onPressAction: root.clicked()
}
