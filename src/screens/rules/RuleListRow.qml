import QtQuick
import Brindlet.Screens

// One row of a list of rules, whatever it shows. The rows under one heading look like one card, of
// which each row is a slice.
Item {
    id: root

    required property RuleRowsModel rules
    required property int index
    required property int kind
    required property string title
    required property string detail
    required property string description
    required property string pill
    required property int pillTone
    required property string pillHelp
    required property string here
    required property string hits
    required property bool canOpen
    required property bool open
    required property bool held
    required property bool ofSession
    required property bool marked
    required property string tickSymbol
    required property string tickHelp
    required property bool canTick
    required property bool first
    required property bool last
    readonly property RowList list: ListView.view as RowList
    readonly property bool isCurrent: ListView.isCurrentItem
    readonly property bool isHeading: kind === RuleRowsModel.Heading
    readonly property bool isRule: kind === RuleRowsModel.RuleItem
    readonly property bool isMessage: kind === RuleRowsModel.Message
    readonly property bool isHovered: hover.hovered
    readonly property bool hasKeyboard: Theme.keyboardLeads && activeFocus

    // More than any line holds: to lay out all of an endless text would stop the scrolling.
    readonly property int mostLetters: 400
    readonly property string shownTitle: title.slice(0, mostLetters)
    readonly property string shownDetail: detail.slice(0, mostLetters)

    width: list ? list.width : 0
    implicitHeight: isRule ? 58 : isMessage ? Theme.rowHeight : isHeading ? 46 : 36

    Item {
        id: slice

        anchors.horizontalCenter: parent.horizontalCenter
        width: root.list ? root.list.rowWidth : 0
        height: parent.height
        clip: !root.isHeading

        Rectangle {
            anchors.fill: parent
            anchors.topMargin: root.first ? 0 : -Theme.cardRadius
            anchors.bottomMargin: root.last ? 0 : -Theme.cardRadius
            visible: !root.isHeading
            radius: Theme.cardRadius
            color: Theme.card
            border.width: 1
            border.color: Theme.line
        }
        Rectangle {
            x: 1
            width: parent.width - 2
            height: 1
            visible: root.isRule && !root.first
            color: Theme.line
        }
        Rectangle {
            anchors.fill: parent
            anchors.margins: 3
            radius: Theme.rowRadius
            color: hover.hovered && (root.isRule || root.isMessage) ? Theme.hover : "transparent"
            border.width: root.hasKeyboard ? 2 : 0
            border.color: Theme.lavenderInk
        }
        SectionLabel {
            y: Theme.space5
            width: parent.width
            visible: root.isHeading
            text: root.title
            note: root.detail
            Accessible.ignored: true
        }
        RuleRow {
            width: parent.width
            visible: root.isRule
            rules: root.rules
            index: root.index
            sender: root.shownTitle
            line: root.shownDetail
            verdict: root.pill
            verdictTone: root.pillTone
            flipHelp: root.pillHelp
            here: root.here
            hits: root.hits
            canOpen: root.canOpen
            open: root.open
            held: root.held
            ofSession: root.ofSession
            marked: root.marked
            isCurrent: root.isCurrent
            onTabbedBack: root.forceActiveFocus(Qt.BacktabFocusReason)
        }
        RuleMessage {
            width: parent.width
            visible: root.isMessage
            subject: root.shownTitle
            sender: root.shownDetail
            tickSymbol: root.tickSymbol
            tickHelp: root.tickHelp
            hovered: root.isHovered
            hasKeyboard: root.hasKeyboard
        }
        Txt {
            x: 46
            y: Theme.space1
            visible: root.kind === RuleRowsModel.Narrow
            text: root.title
            size: Theme.smallSize
            color: Theme.ink3
            Accessible.ignored: true
        }
        HoverHandler {
            id: hover
        }
    }

    Accessible.role: isHeading ? Accessible.Heading
                   : isMessage ? Accessible.CheckBox
                   : isRule ? Accessible.ListItem : Accessible.StaticText
    Accessible.name: isMessage ? root.title + ", " + root.detail : root.title
    Accessible.description: root.description
    Accessible.focusable: true
    Accessible.checkable: root.canTick
    Accessible.checked: root.tickSymbol === "checkmark.square.fill"
    Accessible.onPressAction: root.rules.choose(root.index)
    Accessible.onToggleAction: root.rules.choose(root.index)
}
