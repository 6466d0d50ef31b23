import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// The messages of the open category, in a frame of at most eight rows, and what narrows and groups
// them.
FocusScope {
    id: root

    required property MessagesModel messages
    required property string name
    // Where Tab goes before it goes to the next category.
    required property ReviewBars bars
    readonly property int mostRows: 8
    readonly property alias tabStop: tabStop
    readonly property alias list: list

    implicitHeight: column.implicitHeight

    function find(): void {
        filter.forceActiveFocus(Qt.ShortcutFocusReason);
        filter.selectAll();
    }

    ColumnLayout {
        id: column

        width: parent.width
        spacing: 0

        Rectangle {
            Layout.fillWidth: true
            implicitHeight: 1
            color: Theme.line
        }
        RowLayout {
            Layout.fillWidth: true
            Layout.margins: Theme.space3
            Layout.bottomMargin: 10
            spacing: Theme.space2

            SearchField {
                id: filter

                objectName: "filter"
                Layout.fillWidth: true
                words: root.messages.filter
                prompt: root.messages.filterPrompt
                symbol: root.messages.filterSymbol
                clearLabel: root.messages.clearLabel
                outcome: root.messages.matchLine
                onAsked: words => root.messages.filter = words
            }
            GhostButton {
                objectName: "tickAll"
                visible: root.messages.matchLine !== ""
                text: root.messages.tickAllLabel
                boxed: true
                tint: Theme.lavenderInk
                onClicked: root.messages.tickAll()
            }
            GhostButton {
                objectName: "untickAll"
                visible: root.messages.matchLine !== ""
                text: root.messages.untickAllLabel
                boxed: true
                onClicked: root.messages.untickAll()
            }
            ToggleButton {
                objectName: "bySender"
                symbol: root.messages.bySenderSymbol
                text: root.messages.bySenderLabel
                help: root.messages.bySenderHelp
                on: root.messages.bySender
                onClicked: root.messages.bySender = !root.messages.bySender
            }
        }
        MessageList {
            id: list

            objectName: "messages"
            Layout.fillWidth: true
            Layout.bottomMargin: 6
            Layout.preferredHeight: Math.min(count, root.mostRows) * Theme.rowHeight
            name: root.name
            messages: root.messages
            currentIndex: 0
        }
        TabStop {
            id: tabStop

            enabled: root.bars.shown
            onReached: forward => root.bars.enter(forward)
        }
        Txt {
            objectName: "scrollLine"
            Layout.alignment: Qt.AlignHCenter
            Layout.bottomMargin: 10
            visible: list.count > root.mostRows
            text: root.messages.scrollLine
            size: 11
            color: Theme.ink3
        }
    }
}
