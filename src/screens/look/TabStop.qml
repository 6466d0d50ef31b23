import QtQuick
import QtQuick.Templates as T

// A place in the order of Tab where the keyboard leaves it for somewhere else.
T.Control {
    id: root

    signal reached(forward: bool)

    focusPolicy: Qt.TabFocus

    onActiveFocusChanged: {
        if (root.activeFocus)
            root.reached(root.focusReason !== Qt.BacktabFocusReason);
    }

    // Takes the keyboard on from here, or back before it.
    function goOn(): void {
        root.nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason);
    }

    function goBack(): void {
        root.nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason);
    }

    Accessible.ignored: true
}
