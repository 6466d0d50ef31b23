import QtQuick

// A row of a stack, of any height. Tells what is asked of it by key; what that does is the row's own
// affair.
Item {
    id: root

    required property int index
    // Set by the stack.
    property bool current: false
    readonly property bool hasKeyboard: activeFocus && Theme.keyboardLeads
    // For the controls in the row: Tab comes by those of the current row alone.
    readonly property int controlFocus: current ? Qt.StrongFocus : Qt.ClickFocus

    // By Space or Return.
    signal pressed
    // By Right and Left.
    signal opened
    signal closed
    // By Delete, or what a Mac calls so.
    signal deletePressed
    // By the menu key or Shift+F10, at a place of the row.
    signal menuAsked(place: point)

    activeFocusOnTab: current

    Keys.onPressed: event => {
        // What a control in the row leaves over is not meant for the row.
        event.accepted = root.activeFocus && root.obey(event.key, event.modifiers);
    }

    function obey(key: int, modifiers: int): bool {
        switch (key) {
        case Qt.Key_Space:
        case Qt.Key_Return:
        case Qt.Key_Enter:
            root.pressed();
            return true;
        case Qt.Key_Right:
            root.opened();
            return true;
        case Qt.Key_Left:
            root.closed();
            return true;
        case Qt.Key_Delete:
        case Qt.Key_Backspace:
            root.deletePressed();
            return true;
        case Qt.Key_Menu:
            root.menuAsked(Qt.point(Theme.space5, Theme.rowHeight));
            return true;
        case Qt.Key_F10:
            if (modifiers !== Qt.ShiftModifier)
                return false;
            root.menuAsked(Qt.point(Theme.space5, Theme.rowHeight));
            return true;
        }
        return false;
    }

    Accessible.role: Accessible.ListItem
    Accessible.focusable: true
}
