import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Brindlet.Screens

// The line that is always there: a button that opens and closes, and while anything is ticked a
// button that puts it back.
Item {
    id: root

    required property MovedListModel model
    // By the person: opened or closed.
    signal toggled

    implicitHeight: Theme.headerHeight

    function open(wanted: bool): void {
        if (root.model.expanded === wanted)
            return;
        root.toggled();
        root.model.expanded = wanted;
    }

    T.Button {
        id: opener

        objectName: "movedHeader"
        anchors.fill: parent
        focusPolicy: Qt.StrongFocus
        hoverEnabled: true
        onClicked: root.open(!root.model.expanded)

        Keys.onReturnPressed: opener.clicked()
        Keys.onEnterPressed: opener.clicked()
        Keys.onRightPressed: root.open(true)
        Keys.onLeftPressed: root.open(false)

        background: Item {
            Item {
                anchors.fill: parent
                clip: true

                // Square at its foot while the card goes on below.
                Rectangle {
                    width: parent.width
                    height: parent.height + (root.model.expanded ? radius : 0)
                    radius: Theme.cardRadius
                    color: opener.down ? Theme.press
                         : opener.hovered ? Theme.hover : "transparent"
                }
            }
            FocusRing {
                control: opener
                around: Theme.cardRadius
                gap: 0
            }
        }

        Accessible.name: root.model.heading
        Accessible.description: root.model.description
        Accessible.onPressAction: opener.clicked()
    }
    Symbol {
        x: 15
        anchors.verticalCenter: parent.verticalCenter
        symbol: root.model.symbol
        color: Theme.greenInk
        size: 20
    }
    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 48
        anchors.rightMargin: 22
        spacing: Theme.space3

        Txt {
            objectName: "movedHeading"
            Layout.maximumWidth: Math.ceil(implicitWidth)
            Layout.fillWidth: true
            text: root.model.heading
            size: 15
            weight: Font.DemiBold
            maximumLineCount: 1
            elide: Text.ElideRight
            Accessible.ignored: true
        }
        ToneTag {
            text: root.model.badge
            tone: root.model.badgeTone
            Accessible.ignored: true
        }
        Item {
            Layout.fillWidth: true
        }
        Txt {
            objectName: "toPutBack"
            text: root.model.toPutBack
            weight: Font.Medium
            color: Theme.ink2
            Accessible.ignored: true
        }
        Item {
            implicitWidth: putBack.implicitWidth
            implicitHeight: putBack.implicitHeight
            visible: putBack.text !== ""

            // A second click finds the button disabled, and is not meant for what lies beneath.
            MouseArea {
                anchors.fill: parent
            }
            GhostButton {
                id: putBack

                objectName: "putBack"
                enabled: root.model.canPutBack
                text: root.model.putBackLabel
                boxed: true
                tint: Theme.lavenderInk
                onClicked: {
                    // It goes when its work is done, and the keyboard would be nowhere.
                    opener.forceActiveFocus();
                    root.model.putBack();
                }
            }
        }
        Symbol {
            Layout.leftMargin: Theme.space1
            symbol: root.model.chevron
            size: 16
        }
    }
}
