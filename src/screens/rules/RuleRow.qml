import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Brindlet.Screens

// One rule: what it covers, and what can be done with it. Its buttons can be tabbed to while it is
// the current row of its list.
Item {
    id: root

    required property RuleListRow row
    readonly property RuleRowsModel rules: row.list.rules
    readonly property RuleControlsText controls: rules.controls
    readonly property int focusOfButtons: row.isCurrent ? Qt.TabFocus : Qt.NoFocus

    implicitHeight: 58

    T.Button {
        id: chevron

        objectName: "open"
        anchors.verticalCenter: parent.verticalCenter
        x: 10
        width: 28
        height: 28
        focusPolicy: Qt.NoFocus
        hoverEnabled: true
        enabled: root.row.canOpen
        opacity: enabled ? 1 : 0.3
        onClicked: root.rules.choose(root.row.index)

        background: Rectangle {
            radius: Theme.rowRadius
            color: chevron.down ? Theme.press : chevron.hovered ? Theme.hover : "transparent"
        }
        contentItem: Item {
            Symbol {
                anchors.centerIn: parent
                symbol: "chevron.down"
                size: 15
                rotation: root.row.open ? 0 : -90

                Behavior on rotation {
                    NumberAnimation {
                        duration: Theme.quick
                    }
                }
            }
        }

        HelpSpot {
            control: chevron
            text: root.controls.showHelp
            wanted: chevron.hovered
        }

        Accessible.name: root.controls.showHelp
        Accessible.onPressAction: chevron.clicked()
    }
    ColumnLayout {
        anchors.verticalCenter: parent.verticalCenter
        anchors.left: chevron.right
        anchors.leftMargin: Theme.space1
        anchors.right: side.left
        anchors.rightMargin: Theme.space3
        spacing: 1
        opacity: root.row.marked ? 0.6 : 1

        RowLayout {
            Layout.fillWidth: true
            spacing: Theme.space2

            Txt {
                Layout.fillWidth: true
                Layout.maximumWidth: Math.ceil(implicitWidth)
                text: root.row.title
                weight: Font.DemiBold
                font.strikeout: root.row.marked
                horizontalAlignment: Text.AlignLeft
                maximumLineCount: 1
                elide: Text.ElideMiddle
                Accessible.ignored: true
            }
            VerdictPill {
                objectName: "flip"
                focusPolicy: root.focusOfButtons
                text: root.row.pill
                tone: root.row.pillTone
                help: root.row.pillHelp
                onClicked: root.rules.flip(root.row.index)
            }
            Txt {
                text: root.row.here
                size: Theme.smallSize
                weight: Font.Medium
                color: Theme.ink2
                visible: text !== ""
                Accessible.ignored: true
            }
            Txt {
                text: root.row.hits
                size: Theme.smallSize
                weight: Font.Medium
                color: Theme.ink3
                visible: text !== ""
                Accessible.ignored: true
            }
            Item {
                Layout.fillWidth: true
            }
        }
        Txt {
            Layout.fillWidth: true
            text: root.row.detail
            size: Theme.smallSize
            color: root.row.marked || root.row.held ? Theme.orangeInk : Theme.ink3
            horizontalAlignment: Text.AlignLeft
            maximumLineCount: 1
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }
    Row {
        id: side

        anchors.verticalCenter: parent.verticalCenter
        anchors.right: parent.right
        anchors.rightMargin: 12
        spacing: Theme.space1

        GhostButton {
            objectName: "enable"
            visible: root.row.held
            focusPolicy: root.focusOfButtons
            text: root.controls.enable
            help: root.controls.enableHelp
            boxed: true
            tint: Theme.orangeInk
            onClicked: root.rules.enable(root.row.index)
        }
        GhostButton {
            objectName: "promote"
            visible: root.row.ofSession
            focusPolicy: root.focusOfButtons
            text: root.controls.promote
            help: root.controls.promoteHelp
            onClicked: root.rules.promote(root.row.index)
        }
        GhostButton {
            objectName: "mark"
            focusPolicy: root.focusOfButtons
            symbol: root.row.marked ? root.controls.unmarkSymbol : root.controls.markSymbol
            tint: root.row.marked ? Theme.orangeInk : Theme.ink3
            help: root.row.marked ? root.controls.unmarkHelp : root.controls.markHelp
            onClicked: root.rules.toggleMark(root.row.index)
        }
    }
}
