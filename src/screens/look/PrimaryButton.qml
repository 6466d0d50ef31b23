import QtQuick
import QtQuick.Templates as T
import Brindlet.Screens

// The one main action of a screen, where the round button would be too much.
T.Button {
    id: root

    property string symbol: ""
    property string help: ""
    readonly property bool truncated: (contentItem as ButtonFace)?.truncated ?? false
    readonly property real light: down ? 0.94 : hovered ? 1.05 : 1

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: 40
    leftPadding: 18
    rightPadding: 18
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    opacity: enabled ? 1 : 0.45

    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    background: GradientFill {
        radius: Theme.mainButtonRadius
        from: Qt.lighter(Theme.lavender, root.light)
        to: Qt.lighter(Theme.blue, root.light)

        FocusRing {
            control: root
            around: Theme.mainButtonRadius
        }
    }
    contentItem: ButtonFace {
        symbol: root.symbol
        symbolSize: 18
        text: root.text
        size: Theme.bodySize
        weight: Font.DemiBold
        tint: Theme.onTint
    }
    HelpSpot {
        control: root
        text: root.help !== "" ? root.help : root.truncated ? root.text : ""
        wanted: root.hovered || (root.activeFocus && Theme.keyboardLeads)
    }

    Accessible.name: root.text
    Accessible.description: root.help
    Accessible.onPressAction: root.clicked()
}
