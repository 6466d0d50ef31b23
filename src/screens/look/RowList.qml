import QtQuick
import QtQuick.Templates as T

// A lazy list of rows with one tab stop, walked with the arrow keys.
ListView {
    id: root

    required property string name
    // By a click, by Space or Return, or by a screen reader.
    signal rowChosen(row: int)

    clip: true
    activeFocusOnTab: true
    keyNavigationEnabled: true
    highlightMoveDuration: 0
    boundsBehavior: Flickable.StopAtBounds
    pixelAligned: true
    reuseItems: true
    cacheBuffer: 5 * Theme.rowHeight

    Keys.onSpacePressed: root.rowChosen(root.currentIndex)
    Keys.onReturnPressed: root.rowChosen(root.currentIndex)
    Keys.onEnterPressed: root.rowChosen(root.currentIndex)
    Keys.onPressed: event => {
        const page = Math.max(1, Math.floor(root.height / Theme.rowHeight) - 1);
        const to = event.key === Qt.Key_Home ? 0
                 : event.key === Qt.Key_End ? root.count - 1
                 : event.key === Qt.Key_PageUp ? Math.max(0, root.currentIndex - page)
                 : event.key === Qt.Key_PageDown ? Math.min(root.count - 1, root.currentIndex + page)
                 : -1;
        event.accepted = to >= 0;
        if (event.accepted)
            root.currentIndex = to;
    }

    TapHandler {
        onTapped: point => root.tapped(root.indexAt(point.position.x + root.contentX,
                                                    point.position.y + root.contentY))
    }
    T.ScrollBar.vertical: SectionScrollBar {}

    function tapped(row: int): void {
        if (row < 0)
            return;
        root.currentIndex = row;
        root.rowChosen(row);
    }

    Accessible.role: Accessible.List
    Accessible.name: root.name
    Accessible.focusable: true
}
