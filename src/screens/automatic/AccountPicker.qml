import QtQuick
import Brindlet.Screens

// The accounts, each of which opens to its folders as ticks. Right and Left open and close.
RowList {
    id: root

    required property WatchListModel mailboxes

    model: mailboxes
    // Where the arrow keys begin.
    currentIndex: 0

    onRowChosen: row => root.mailboxes.press(row)
    onRowTapped: row => root.mailboxes.press(row)
    Keys.onRightPressed: root.mailboxes.setOpen(root.currentIndex, true)
    Keys.onLeftPressed: {
        const account = root.mailboxes.accountRow(root.currentIndex);
        if (account === root.currentIndex)
            root.mailboxes.setOpen(account, false);
        else
            root.currentIndex = account;
    }

    delegate: AccountPickerRow {}
}
