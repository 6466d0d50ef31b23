import QtQuick
import QtQuick.Templates as T

// A lazy list of rows with one tab stop, walked with the arrow keys.
ListView {
    id: root

    required property string name
    // Of what the rows show, in the middle of a list that is wider.
    property real rowWidth: width
    // By Space or Return.
    signal rowChosen(row: int)
    // By the mouse, at a place of the row.
    signal rowTapped(row: int, place: point)

    clip: true
    activeFocusOnTab: true
    keyNavigationEnabled: true
    highlightMoveDuration: 0
    boundsBehavior: Flickable.StopAtBounds
    pixelAligned: true
    reuseItems: true
    cacheBuffer: 0

    onContentYChanged: Help.defer()
    // An emptied list forgets where the keyboard was.
    onCountChanged: {
        if (root.currentIndex < 0 && root.count > 0)
            root.currentIndex = 0;
    }
    Keys.onSpacePressed: root.rowChosen(root.currentIndex)
    Keys.onReturnPressed: root.rowChosen(root.currentIndex)
    Keys.onEnterPressed: root.rowChosen(root.currentIndex)
    Keys.onPressed: event => {
        const page = Math.max(1, Math.floor(root.height / Theme.rowHeight) - 1);
        const to = event.key === Qt.Key_Home ? 0
                 : event.key === Qt.Key_End ? root.count - 1
                 : event.key === Qt.Key_PageUp ? Math.max(0, root.currentIndex - page)
                 : event.key !== Qt.Key_PageDown ? -1
                 : Math.min(root.count - 1, root.currentIndex + page);
        event.accepted = to >= 0;
        if (event.accepted)
            root.currentIndex = to;
    }

    // Below the rows. A handler on the list itself would also hear of clicks on what floats over
    // it.
    MouseArea {
        parent: root.contentItem
        y: root.originY
        z: -1
        width: root.width
        height: Math.max(root.height, root.contentHeight)
        onClicked: mouse => root.tap(mapToItem(root.contentItem, mouse.x, mouse.y))
    }
    T.ScrollBar.vertical: SectionScrollBar {}

    // At a place of the content.
    function tap(place: point): void {
        const row = root.indexAt(place.x, place.y);
        if (row < 0)
            return;
        root.forceActiveFocus(Qt.MouseFocusReason);
        root.currentIndex = row;
        root.rowTapped(row, Qt.point(place.x, place.y - root.itemAtIndex(row).y));
    }

    Accessible.role: Accessible.List
    Accessible.name: root.name
    Accessible.focusable: true
}
