import QtQuick
import QtQuick.Templates as T

// A quiet button: a word, a symbol, or both. Without a word it is named by its help.
T.Button {
    id: root

    property string symbol: ""
    property color tint: Theme.ink2
    property bool boxed: false
    property string help: ""

    implicitWidth: Math.max(32, implicitContentWidth + (text === "" ? 14 : 22))
    implicitHeight: 32
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    opacity: enabled ? 1 : 0.45

    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    background: Rectangle {
        radius: Theme.buttonRadius
        color: root.down ? Theme.press
             : root.boxed ? Theme.wash(root.tint, root.hovered ? Theme.boxHoverStrength
                                                               : Theme.boxStrength)
             : root.hovered ? Theme.hover : "transparent"

        FocusRing {
            control: root
        }
    }
    contentItem: ButtonFace {
        symbol: root.symbol
        text: root.text
        tint: root.tint
        weight: root.boxed ? Font.DemiBold : Font.Medium
    }
    HelpSpot {
        control: root
        text: root.help
        wanted: root.hovered || (root.activeFocus && Theme.keyboardLeads)
    }

    Accessible.name: root.text !== "" ? root.text : root.help
    Accessible.description: root.text !== "" ? root.help : ""
    Accessible.onPressAction: root.clicked()
}
