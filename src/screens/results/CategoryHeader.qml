import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Brindlet.Screens

// The line of a category that is always there: a tick box, and a button that opens and closes.
Item {
    id: root

    required property int index
    required property string label
    required property string count
    required property string badge
    required property int badgeTone
    required property string badgeHelp
    required property string tickSymbol
    required property string tickHelp
    required property string generalHelp
    required property string reviewed
    required property string reviewedHelp
    required property string description
    required property string chevron
    required property bool expanded
    signal tickAsked
    signal toggleAsked
    signal jumpAsked

    implicitHeight: Theme.headerHeight

    // First for the Tab key, and above the button that fills the line.
    TickBox {
        objectName: "categoryTick" + root.index
        x: 11
        z: 1
        anchors.verticalCenter: parent.verticalCenter
        symbol: root.tickSymbol
        label: root.label
        help: root.tickHelp !== "" ? root.tickHelp : root.generalHelp
        onAsked: root.tickAsked()

        Accessible.description: root.tickHelp === "" ? root.generalHelp
                                                     : root.tickHelp + ", " + root.generalHelp
    }
    T.Button {
        id: opener

        objectName: "category" + root.index
        anchors.fill: parent
        focusPolicy: Qt.StrongFocus
        hoverEnabled: true
        onClicked: root.toggleAsked()

        Keys.onReturnPressed: root.toggleAsked()
        Keys.onEnterPressed: root.toggleAsked()
        Keys.onRightPressed: root.open(true)
        Keys.onLeftPressed: root.open(false)

        background: Item {
            Item {
                anchors.fill: parent
                clip: true

                // Square at its foot while the card goes on below.
                Rectangle {
                    width: parent.width
                    height: parent.height + (root.expanded ? radius : 0)
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

        Accessible.name: root.label + ", " + root.count
        Accessible.description: root.description
        Accessible.onPressAction: root.toggleAsked()
    }
    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: 48
        anchors.rightMargin: 22
        spacing: Theme.space3

        Txt {
            text: root.label
            size: 15
            weight: Font.DemiBold
            Accessible.ignored: true
        }
        ToneTag {
            text: root.badge
            tone: root.badgeTone
            help: root.badgeHelp
            Accessible.ignored: true
        }
        T.AbstractButton {
            id: jump

            objectName: "categoryReviewed" + root.index
            implicitWidth: implicitContentWidth
            implicitHeight: implicitContentHeight
            visible: root.reviewed !== ""
            enabled: root.reviewedHelp !== ""
            focusPolicy: enabled ? Qt.StrongFocus : Qt.NoFocus
            hoverEnabled: true
            onClicked: root.jumpAsked()

            Keys.onReturnPressed: root.jumpAsked()
            Keys.onEnterPressed: root.jumpAsked()

            contentItem: ReviewedMark {
                text: root.reviewed
                help: root.reviewedHelp

                FocusRing {
                    control: jump
                    around: parent.radius
                    gap: 2
                }
            }
            HelpSpot {
                control: jump
                text: root.reviewedHelp
                wanted: jump.activeFocus && Theme.keyboardLeads
            }

            // Where it leads nowhere, the header's description says enough.
            Accessible.ignored: !enabled
            Accessible.role: Accessible.Button
            Accessible.name: root.reviewed
            Accessible.description: root.reviewedHelp
            Accessible.onPressAction: root.jumpAsked()
        }
        Item {
            Layout.fillWidth: true
        }
        Txt {
            text: root.count
            weight: Font.Medium
            color: Theme.ink2
            Accessible.ignored: true
        }
        Symbol {
            Layout.leftMargin: Theme.space1
            symbol: root.chevron
            size: 16
        }
    }

    function focusOpener(): void {
        opener.forceActiveFocus();
    }

    function open(wanted: bool): void {
        if (root.expanded !== wanted)
            root.toggleAsked();
    }
}
