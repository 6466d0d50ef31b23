import QtQuick
import Brindlet.Screens

// Rules under their headings, with the mail that they cover. One tab stop; the buttons of the
// current row come after it. Right and Left open and close, Delete marks a rule to go.
RowList {
    id: root

    required property RuleRowsModel rules

    model: rules
    name: rules.listName
    // Not taken away while the keyboard is here.
    activeFocusOnTab: count > 0 || activeFocus
    // Where the arrow keys begin.
    currentIndex: 0

    // Whoever comes back comes to the row, not to the button of it that they left.
    onActiveFocusChanged: {
        if (!root.activeFocus && root.currentItem !== null)
            root.currentItem.focus = true;
    }
    // What stands above the rows comes into sight with the first of them.
    onCurrentIndexChanged: {
        if (root.currentIndex === 0 && Theme.keyboardLeads)
            root.contentY = root.originY - root.topMargin;
    }
    onRowChosen: row => root.rules.choose(row)
    onRowTapped: row => root.rules.choose(row)
    Keys.onRightPressed: root.rules.setOpen(root.currentIndex, true)
    Keys.onLeftPressed: {
        const rule = root.rules.ruleRow(root.currentIndex);
        if (rule === root.currentIndex)
            root.rules.setOpen(rule, false);
        else
            root.currentIndex = rule;
    }
    Keys.onDeletePressed: root.rules.toggleMark(root.currentIndex)
    // What a Mac calls Delete.
    Keys.onPressed: event => {
        if (event.key !== Qt.Key_Backspace)
            return;
        root.rules.toggleMark(root.currentIndex);
        event.accepted = true;
    }

    delegate: RuleListRow {}
}
