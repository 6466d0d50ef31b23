import QtQuick
import QtQuick.Templates as T

// A lazy list of rows with one tab stop, walked with the arrow keys.
ListView {
    id: root

    required property string name

    clip: true
    focus: true
    activeFocusOnTab: true
    keyNavigationEnabled: true
    highlightMoveDuration: 0
    boundsBehavior: Flickable.StopAtBounds
    pixelAligned: true
    reuseItems: true
    cacheBuffer: 5 * Theme.rowHeight

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

    T.ScrollBar.vertical: SectionScrollBar {}

    Accessible.role: Accessible.List
    Accessible.name: root.name
    Accessible.focusable: true
}
