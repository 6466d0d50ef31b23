import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import QtQuick.Window

// A page in the middle of the window that scrolls as a whole, and follows the keyboard.
Flickable {
    id: root

    default property alias content: body.data

    readonly property Item focusItem: Window.activeFocusItem

    contentHeight: body.height + Theme.space5 + Theme.space6
    boundsBehavior: Flickable.StopAtBounds

    T.ScrollBar.vertical: SectionScrollBar {}

    onFocusItemChanged: root.reveal()

    // No further than needed. Not for the mouse: a button that moves away under the pointer is not
    // clicked.
    function reveal(): void {
        const item = root.focusItem;
        if (!Theme.keyboardLeads || !root.holds(item))
            return;
        const top = item.mapToItem(root.contentItem, 0, 0).y;
        const least = top + item.height + Theme.space5 - root.height;
        root.contentY = Math.max(0, Math.min(Math.max(root.contentY, least), top - Theme.space5));
    }

    function holds(item: Item): bool {
        for (let up = item; up !== null; up = up.parent)
            if (up === body)
                return true;
        return false;
    }

    ColumnLayout {
        id: body

        anchors.horizontalCenter: parent.horizontalCenter
        y: Theme.space5
        width: Math.min(root.width - 2 * Theme.space6, Theme.measure)
        spacing: Theme.space3
    }
}
