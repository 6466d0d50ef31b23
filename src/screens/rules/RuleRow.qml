import QtQuick
import QtQuick.Templates as T
import Brindlet.Screens

// One rule: what it covers, and what can be done with it. Its buttons can be tabbed to while it is
// the current row of its list.
Item {
    id: root

    required property RuleRowsModel rules
    required property int index
    required property string sender
    required property string line
    required property string verdict
    required property int verdictTone
    required property string flipHelp
    required property string here
    required property string hits
    required property bool canOpen
    required property bool open
    required property bool held
    required property bool ofSession
    required property bool marked
    required property bool isCurrent
    readonly property RuleControlsText controls: rules.controls
    readonly property int focusOfButtons: isCurrent ? Qt.TabFocus : Qt.NoFocus
    // By Tab, backwards out of the first button.
    signal tabbedBack

    height: parent.height

    T.Button {
        id: chevron

        objectName: "open"
        anchors.verticalCenter: parent.verticalCenter
        x: 10
        width: 28
        height: 28
        focusPolicy: Qt.NoFocus
        hoverEnabled: true
        enabled: root.canOpen
        opacity: enabled ? 1 : 0.3
        onClicked: root.rules.choose(root.index)

        background: Rectangle {
            radius: Theme.rowRadius
            color: chevron.down ? Theme.press : chevron.hovered ? Theme.hover : "transparent"
        }
        contentItem: Item {
            Symbol {
                anchors.centerIn: parent
                symbol: "chevron.down"
                size: 15
                rotation: root.open ? 0 : -90

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
    Column {
        id: words

        anchors.verticalCenter: parent.verticalCenter
        anchors.left: chevron.right
        anchors.leftMargin: Theme.space1
        anchors.right: side.left
        anchors.rightMargin: Theme.space3
        spacing: 1

        Row {
            spacing: Theme.space2

            Txt {
                opacity: root.marked ? 0.6 : 1
                anchors.verticalCenter: parent.verticalCenter
                width: Math.min(Math.ceil(implicitWidth), words.width - marks.width - Theme.space2)
                text: root.sender
                weight: Font.DemiBold
                font.strikeout: root.marked
                horizontalAlignment: Text.AlignLeft
                maximumLineCount: 1
                elide: Text.ElideMiddle
                Accessible.ignored: true
            }
            Row {
                id: marks

                spacing: Theme.space2

                VerdictPill {
                    objectName: "flip"
                    focusPolicy: root.focusOfButtons
                    text: root.verdict
                    tone: root.verdictTone
                    help: root.flipHelp
                    Keys.onBacktabPressed: root.tabbedBack()
                    onClicked: root.rules.flip(root.index)
                }
                Txt {
                    anchors.verticalCenter: parent.verticalCenter
                    visible: text !== ""
                    text: root.here
                    size: Theme.smallSize
                    weight: Font.Medium
                    color: Theme.ink2
                    Accessible.ignored: true
                }
                Txt {
                    anchors.verticalCenter: parent.verticalCenter
                    visible: text !== ""
                    text: root.hits
                    size: Theme.smallSize
                    weight: Font.Medium
                    color: Theme.ink3
                    Accessible.ignored: true
                }
            }
        }
        Txt {
            width: parent.width
            text: root.line
            size: Theme.smallSize
            color: root.marked || root.held ? Theme.orangeInk : Theme.ink3
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
            visible: root.held
            focusPolicy: root.focusOfButtons
            text: root.controls.enable
            help: root.controls.enableHelp
            boxed: true
            tint: Theme.orangeInk
            onClicked: root.rules.enable(root.index)
        }
        GhostButton {
            objectName: "promote"
            visible: root.ofSession
            focusPolicy: root.focusOfButtons
            text: root.controls.promote
            help: root.controls.promoteHelp
            onClicked: root.rules.promote(root.index)
        }
        GhostButton {
            objectName: "mark"
            focusPolicy: root.focusOfButtons
            symbol: root.marked ? root.controls.unmarkSymbol : root.controls.markSymbol
            tint: root.marked ? Theme.orangeInk : Theme.ink3
            help: root.marked ? root.controls.unmarkHelp : root.controls.markHelp
            onClicked: root.rules.toggleMark(root.index)
        }
    }
}
