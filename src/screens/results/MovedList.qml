import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// The messages that have left the folder, in a frame of at most eight rows, and what narrows them.
FocusScope {
    id: root

    required property MovedListModel messages
    readonly property int mostRows: 8

    implicitHeight: column.implicitHeight

    Keys.onEscapePressed: event => {
        event.accepted = root.messages.filter !== "";
        root.messages.filter = "";
    }

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
        Txt {
            objectName: "movedHint"
            Layout.fillWidth: true
            Layout.margins: Theme.space3
            Layout.leftMargin: 15
            Layout.bottomMargin: 0
            text: root.messages.hint
            size: Theme.rowSize
            color: Theme.ink2
            wrapMode: Text.WordWrap
        }
        SearchField {
            id: filter

            objectName: "movedFilter"
            Layout.fillWidth: true
            Layout.margins: Theme.space3
            Layout.bottomMargin: 10
            words: root.messages.filter
            prompt: root.messages.filterPrompt
            symbol: root.messages.filterSymbol
            clearLabel: root.messages.clearLabel
            onAsked: words => root.messages.filter = words
        }
        RowList {
            id: list

            objectName: "movedMessages"
            Layout.fillWidth: true
            Layout.bottomMargin: 6
            Layout.preferredHeight: Math.min(count, root.mostRows) * Theme.rowHeight
            name: root.messages.listName
            model: root.messages
            currentIndex: 0
            onRowChosen: row => root.messages.tick(row)
            onRowTapped: row => root.messages.tick(row)

            delegate: MovedListRow {}
        }
        Txt {
            objectName: "movedScrollLine"
            Layout.alignment: Qt.AlignHCenter
            Layout.bottomMargin: 10
            visible: list.count > root.mostRows
            text: root.messages.scrollLine
            size: 11
            color: Theme.ink3
        }
    }
}
