import QtQuick
import QtQuick.Templates as T
import Brindlet.Screens

// Names where junk will go, and drops the choice of others.
T.Button {
    id: root

    required property string label
    required property string symbol
    required property color ink
    readonly property bool truncated: (contentItem as DestinationFace)?.truncated ?? false

    implicitWidth: implicitContentWidth
    implicitHeight: 28
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true

    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    background: Rectangle {
        radius: Theme.rowRadius
        color: root.down ? Theme.press
             : Theme.wash(root.ink, root.hovered ? Theme.boxHoverStrength : Theme.boxStrength)

        FocusRing {
            control: root
            around: Theme.rowRadius
        }
    }
    contentItem: DestinationFace {
        text: root.text
        symbol: root.symbol
        ink: root.ink
    }
    HelpSpot {
        control: root
        text: root.truncated ? root.text : ""
        wanted: root.hovered || (root.activeFocus && Theme.keyboardLeads)
    }

    Accessible.name: root.label
    Accessible.description: root.text
    Accessible.onPressAction: root.clicked()
}
