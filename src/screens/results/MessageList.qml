import QtQuick
import Brindlet.Screens

// The rows of the open category. Space ticks; Right and Left open and close a sender, and Left on
// one of its messages goes back to it; Ctrl+O opens a message in the mail program.
RowList {
    id: root

    required property MessagesModel messages

    model: messages

    onRowChosen: row => root.messages.tick(row)
    onRowTapped: (row, place) => (root.itemAtIndex(row) as MessageRow).tap(place)

    Keys.onRightPressed: root.messages.setExpanded(root.currentIndex, true)
    Keys.onLeftPressed: {
        const sender = root.messages.senderRow(root.currentIndex);
        if (sender === root.currentIndex)
            root.messages.setExpanded(sender, false);
        else if (sender >= 0)
            root.currentIndex = sender;
    }

    Shortcut {
        sequences: ["Ctrl+O"]
        enabled: root.activeFocus
        onActivated: root.messages.openInMail(root.currentIndex)
    }

    delegate: MessageRow {}

    Connections {
        target: root.messages

        function onJumped(row: int): void {
            root.positionViewAtIndex(row, ListView.Center);
            root.currentIndex = row;
            root.forceActiveFocus();
        }
    }
}
