import QtQuick
import Brindlet.Screens

// One row of the open category: a message, a sender of some, or the heading over those that stay
// put. One type for all three, so that any row can be used again for any other. The list hands on
// what the mouse does, and the keyboard never enters a row.
Item {
    id: root

    required property int index
    required property int kind
    required property bool indent
    required property string title
    required property string detail
    required property string tickSymbol
    required property string tickHelp
    required property bool canTick
    required property string count
    required property string chevron
    required property bool expanded
    required property string note
    required property int noteTone
    required property string noteHelp
    required property string openHelp
    required property string reviewed
    required property string reviewedHelp
    required property string description
    readonly property RowList list: ListView.view as RowList
    readonly property MessagesModel messages: list !== null ? list.model as MessagesModel : null
    readonly property bool isMessage: kind === MessagesModel.Message
    readonly property bool isSender: kind === MessagesModel.Sender
    readonly property bool isHeading: kind === MessagesModel.Heading
    readonly property bool ticked: tickSymbol === "checkmark.square.fill"
    readonly property bool partly: tickSymbol === "minus.square.fill"
    readonly property bool isCurrent: ListView.isCurrentItem && list !== null && list.activeFocus
    readonly property bool hasKeyboard: isCurrent && Theme.keyboardLeads

    // More than any line holds: to lay out all of an endless subject would stop the scrolling.
    readonly property int mostLetters: 1000

    width: list ? list.width : 0
    implicitHeight: Theme.rowHeight

    function tap(place: point): void {
        if (root.isHeading)
            return;
        if (root.isMessage && button.opacity > 0 && root.hits(button, place))
            root.messages.openInMail(root.index);
        else if (mark.leads && root.hits(mark, place))
            root.messages.jumpToReviewed();
        else if (root.isSender && !root.hits(box, place))
            root.messages.toggleExpanded(root.index);
        else
            root.messages.tick(root.index);
    }

    function hits(part: Item, place: point): bool {
        return part.contains(part.mapFromItem(root, place));
    }

    HoverHandler {
        id: hover

        enabled: !root.isHeading
    }
    Rectangle {
        objectName: "row" + root.index
        anchors.fill: parent
        anchors.leftMargin: 6
        anchors.rightMargin: 6
        anchors.topMargin: 1
        anchors.bottomMargin: 1
        radius: Theme.rowRadius
        color: hover.hovered ? Theme.hover : "transparent"
        border.width: root.hasKeyboard ? 2 : 0
        border.color: Theme.lavenderInk
    }
    Rectangle {
        id: box

        objectName: "box" + root.index
        anchors.verticalCenter: parent.verticalCenter
        x: 11 + (root.indent ? 26 : 0)
        width: 28
        height: 28
        radius: Theme.rowRadius
        visible: !root.isHeading
        color: boxHover.hovered && root.canTick ? Theme.hover : "transparent"

        HoverHandler {
            id: boxHover
        }
        TickSymbol {
            anchors.centerIn: parent
            symbol: root.tickSymbol
            hovered: boxHover.hovered
        }
        HelpSpot {
            control: box
            text: root.tickHelp
            wanted: boxHover.hovered || root.hasKeyboard
        }
    }
    Column {
        anchors.verticalCenter: parent.verticalCenter
        anchors.left: root.isHeading ? parent.left : box.right
        anchors.leftMargin: root.isHeading ? 18 : 9
        anchors.right: side.left
        anchors.rightMargin: Theme.space3
        spacing: 1

        Txt {
            objectName: "rowTitle" + root.index
            width: parent.width
            text: root.title.slice(0, root.mostLetters)
            size: root.isHeading ? Theme.smallSize : Theme.rowSize
            weight: root.isMessage ? Font.Medium : Font.DemiBold
            color: root.isHeading ? Theme.greenInk
                 : root.ticked || root.partly ? Theme.ink : Theme.ink2
            // A subject in a script from the right stays beside its box too.
            horizontalAlignment: Text.AlignLeft
            maximumLineCount: 1
            elide: Text.ElideRight
            Accessible.ignored: true
        }
        Txt {
            visible: text !== ""
            width: parent.width
            text: root.detail.slice(0, root.mostLetters)
            size: 11
            color: Theme.ink3
            horizontalAlignment: Text.AlignLeft
            maximumLineCount: 1
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }
    Row {
        id: side

        anchors.right: parent.right
        anchors.rightMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        spacing: 8

        ReviewedMark {
            id: mark

            objectName: "rowReviewed" + root.index
            anchors.verticalCenter: parent.verticalCenter
            text: root.reviewed
            help: root.reviewedHelp
        }
        ToneTag {
            anchors.verticalCenter: parent.verticalCenter
            text: root.note
            tone: root.noteTone
            help: root.noteHelp
            Accessible.ignored: true
        }
        Txt {
            anchors.verticalCenter: parent.verticalCenter
            visible: text !== ""
            text: root.count
            size: Theme.smallSize
            color: Theme.ink3
            Accessible.ignored: true
        }
        RowButton {
            id: button

            objectName: "rowButton" + root.index
            visible: root.isSender || root.openHelp !== ""
            opacity: root.isSender || hover.hovered || root.isCurrent ? 1 : 0
            symbol: root.isSender ? root.chevron : "arrow.up.forward.app"
            help: root.openHelp
            onAsked: root.isSender ? root.messages.toggleExpanded(root.index)
                                   : root.messages.openInMail(root.index)

            Accessible.name: root.isSender ? root.title : root.openHelp
            Accessible.description: root.isSender ? root.description : ""
        }
    }

    Accessible.role: root.isHeading ? Accessible.Heading : Accessible.CheckBox
    Accessible.name: root.detail === "" ? root.title : root.title + ", " + root.detail
    Accessible.description: root.description
    Accessible.focusable: true
    Accessible.checkable: root.canTick
    Accessible.checked: root.ticked
    Accessible.checkStateMixed: root.partly
    Accessible.onPressAction: root.messages.tick(root.index)
    Accessible.onToggleAction: root.messages.tick(root.index)
}
