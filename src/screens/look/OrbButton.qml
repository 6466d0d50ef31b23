import QtQuick
import Brindlet.Screens
import QtQuick.Templates as T

// The one big round button of a screen.
T.Button {
    id: root

    readonly property real light: down ? 0.95 : hovered ? 1.03 : 1

    implicitWidth: 116
    implicitHeight: 116
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true

    Keys.onReturnPressed: root.clicked()
    Keys.onEnterPressed: root.clicked()

    background: Item {
        Glow {
            anchors.centerIn: parent
            tint: Theme.wash(Theme.lavender, Theme.dark ? 0.42 : 0.5)
            opacity: !root.enabled ? 0 : root.hovered ? 1 : 0.75

            Behavior on opacity {
                NumberAnimation {
                    duration: Theme.calm
                }
            }
        }
        Rectangle {
            anchors.fill: parent
            visible: !root.enabled
            radius: width / 2
            color: Theme.press
        }
        GradientFill {
            anchors.fill: parent
            anchors.margins: root.down ? 2 : 0
            visible: root.enabled
            slanted: true
            radius: width / 2
            from: Qt.lighter(Theme.lavender, root.light)
            to: Qt.lighter(Theme.blue, root.light)
        }
        FocusRing {
            control: root
            around: root.width / 2
            gap: 5
        }
    }
    contentItem: Item {
        Txt {
            anchors.centerIn: parent
            text: root.text
            size: 19
            weight: Font.DemiBold
            color: root.enabled ? Theme.onTint : Theme.ink3
            Accessible.ignored: true
        }
    }

    Accessible.name: root.text
    Accessible.onPressAction: root.clicked()
}
