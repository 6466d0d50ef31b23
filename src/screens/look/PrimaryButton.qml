import QtQuick
import Brindlet.Screens
import QtQuick.Templates as T

// The one main action of a screen, where the round button would be too much.
T.Button {
    id: root

    property string symbol: ""
    readonly property real light: down ? 0.94 : hovered ? 1.05 : 1

    implicitWidth: row.implicitWidth + 36
    implicitHeight: 40
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
            shown: root.visualFocus
            around: Theme.mainButtonRadius
        }
    }
    contentItem: Item {
        Row {
            id: row

            anchors.centerIn: parent
            spacing: 8

            Symbol {
                anchors.verticalCenter: parent.verticalCenter
                visible: root.symbol !== ""
                symbol: root.symbol
                color: Theme.onTint
            }
            Txt {
                anchors.verticalCenter: parent.verticalCenter
                text: root.text
                color: Theme.onTint
                weight: Font.DemiBold
                Accessible.ignored: true
            }
        }
    }

    Accessible.name: root.text
    Accessible.onPressAction: root.clicked()
}
