import QtQuick
import QtQuick.Layouts

// A choice out of a few that are all on show. One tab stop, which is the chosen one; the arrow keys
// walk from there, and walking is not choosing.
GridLayout {
    id: root

    required property string name
    required property int chosen
    property alias model: items.model
    property alias delegate: items.delegate
    // Where the keyboard is; -1 while it is elsewhere.
    property int visited: -1
    readonly property int stop: visited >= 0 ? visited : Math.max(0, chosen)
    signal asked(row: int)

    function notice(index: int, active: bool): void {
        if (active)
            root.visited = index;
        else if (root.visited === index)
            root.visited = -1;
    }

    // False where there is nothing further that way.
    function walk(key: int): bool {
        const to = key === Qt.Key_Left || key === Qt.Key_Up ? root.stop - 1
                 : key === Qt.Key_Right || key === Qt.Key_Down ? root.stop + 1
                 : key === Qt.Key_Home ? 0
                 : key === Qt.Key_End ? items.count - 1 : -1;
        if (to < 0 || to >= items.count)
            return false;
        items.itemAt(to).forceActiveFocus(Qt.OtherFocusReason);
        return true;
    }

    Repeater {
        id: items
    }

    Accessible.role: Accessible.Grouping
    Accessible.name: root.name
}
