import QtQuick
import QtQuick.Window

// Rows of any height one below the other, on a page that scrolls. One tab stop, the current row,
// which the arrow keys move; what stands in that row comes next.
Item {
    id: root

    required property string name
    property alias model: rows.model
    property alias delegate: rows.delegate
    readonly property alias count: rows.count
    property StackRow current: null
    readonly property Item focusItem: Window.activeFocusItem

    implicitHeight: column.height

    onCurrentChanged: {
        for (let i = 0; i < rows.count; ++i)
            root.mark(rows.itemAt(i) as StackRow);
    }
    // Whatever brought the focus into a row, a click among it, makes the row the current one.
    onFocusItemChanged: {
        for (let up = root.focusItem; up !== null; up = up.parent)
            if (up.parent === column && up instanceof StackRow)
                root.current = up;
    }
    Keys.onPressed: event => {
        const to = root.current === null || !root.current.activeFocus ? -1
                 : event.key === Qt.Key_Up ? root.current.index - 1
                 : event.key === Qt.Key_Down ? root.current.index + 1
                 : event.key === Qt.Key_Home ? 0
                 : event.key === Qt.Key_End ? rows.count - 1 : -1;
        event.accepted = to >= 0 && to < rows.count;
        if (event.accepted)
            rows.itemAt(to).forceActiveFocus();
    }

    function mark(row: StackRow): void {
        if (row !== null)
            row.current = row === root.current;
    }

    // The row that takes the place of the current one, or the last.
    function replaceCurrent(index: int): void {
        const had = root.current !== null && root.current.activeFocus;
        root.current = rows.itemAt(Math.min(index, rows.count - 1)) as StackRow;
        if (had && root.current !== null)
            root.current.forceActiveFocus();
    }

    Column {
        id: column

        width: parent.width

        Repeater {
            id: rows

            onItemAdded: (index, item) => {
                if (root.current === null)
                    root.current = item as StackRow;
                root.mark(item as StackRow);
            }
            onItemRemoved: (index, item) => {
                if (item === root.current)
                    root.replaceCurrent(index);
            }
        }
    }

    Accessible.role: Accessible.List
    Accessible.name: root.name
}
