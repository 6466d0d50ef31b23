import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// Moves what is ticked, and tells how that goes; no higher with the one than with the other.
Rectangle {
    id: root

    required property MoveModel model
    readonly property bool moving: model.moving

    objectName: "moveBar"
    implicitHeight: Math.max(root.model.offered ? 78 : 54,
                             status.visible ? status.implicitHeight + 2 * Theme.space4 : 0)
    radius: Theme.barRadius
    color: Theme.raised
    border.width: 1
    border.color: Theme.line
    visible: model.offered || model.hasStatus

    onMovingChanged: swapped.restart()

    function holds(item: Item): bool {
        return item === move || item === menuButton || item === stop;
    }

    // Which of them stands now, or else what comes after them.
    function takeKeyboard(): void {
        const next = stop.visible ? stop
                   : move.visible && move.enabled ? move
                   : menuButton.visible ? menuButton : stop.nextItemInFocusChain(true);
        next.forceActiveFocus(Qt.TabFocusReason);
    }

    Shadow {
        radius: root.radius
        blur: 18
    }
    // The second click of a double one is not for the button that stands there by then.
    Timer {
        id: swapped

        objectName: "swapped"
        interval: Theme.doubleClick
    }
    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.space4
        anchors.rightMargin: Theme.space4
        spacing: Theme.space2

        PrimaryButton {
            id: move

            objectName: "move"
            Layout.maximumWidth: 420
            visible: root.model.offered && !root.moving
            enabled: root.model.canMove
            symbol: root.model.symbol
            text: root.model.label
            onClicked: {
                if (!swapped.running)
                    root.model.press();
            }
        }
        GhostButton {
            id: menuButton

            objectName: "destinations"
            visible: root.model.offered && root.model.hasChoice
            symbol: root.model.menuSymbol
            help: root.model.menuHelp
            boxed: true
            implicitWidth: 40
            implicitHeight: 40
            onClicked: menu.toggle()
            onVisibleChanged: menu.close()

            DestinationMenu {
                id: menu

                destinations: root.model.destinations
                title: root.model.menuHelp
                onAsked: row => root.model.choose(row)
            }
        }
        GhostButton {
            id: stop

            objectName: "stopMove"
            visible: root.moving
            text: root.model.stopLabel
            help: root.model.stopHelp
            boxed: true
            tint: Theme.orangeInk
            implicitWidth: 84
            implicitHeight: 40
            onClicked: {
                if (!swapped.running)
                    root.model.stop();
            }
        }
        MoveStatus {
            id: status

            objectName: "moveStatus"
            Layout.fillWidth: true
            Layout.leftMargin: root.model.offered ? Theme.space2 : 0
            visible: root.model.hasStatus
            model: root.model
        }
        Item {
            Layout.fillWidth: true
            visible: !status.visible
        }
    }
}
