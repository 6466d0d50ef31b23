import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import QtQuick.Window

// A page that may be longer than the window. Keeps in sight what the keyboard has come to, but does
// not follow the mouse: a button that moves away under the pointer is not clicked.
Flickable {
    id: root

    // How much of its foot something floats over.
    property real covered: 0
    readonly property bool settled: !glide.running
    readonly property Item focusItem: Window.activeFocusItem
    // Frames for which the page still sees to it that what the keyboard came to is in sight: what
    // opens above it at the same moment gets its place with the next one or two.
    property int owed: 0
    default property alias content: body.data

    contentHeight: page.height
    boundsBehavior: Flickable.StopAtBounds

    onFocusItemChanged: {
        root.follow();
        root.owed = 2;
    }
    onMovementStarted: root.owed = 0
    onCoveredChanged: root.follow()
    onContentYChanged: Help.defer()

    T.ScrollBar.vertical: SectionScrollBar {}

    Connections {
        target: root.Window.window
        enabled: root.owed > 0

        // All has its place by then.
        function onAfterAnimating(): void {
            root.owed -= 1;
            root.follow();
        }
    }
    NumberAnimation {
        id: glide

        target: root
        property: "contentY"
        duration: Theme.calm
        easing.type: Easing.OutCubic
    }
    Item {
        id: page

        width: root.width
        height: body.y + body.height + Theme.space6 + root.covered

        ColumnLayout {
            id: body

            anchors.horizontalCenter: parent.horizontalCenter
            y: Theme.space5
            width: Math.min(root.width - 2 * Theme.space6, Theme.measure)
            spacing: Theme.space3
        }
    }

    function follow(): void {
        if (Theme.keyboardLeads && root.holds(root.focusItem)) {
            glide.stop();
            root.contentY = root.placeFor(root.focusItem);
        }
    }

    function holds(item: Item): bool {
        for (let up = item; up !== null; up = up.parent) {
            if (up === page)
                return true;
        }
        return false;
    }

    // Brings all of an item into sight, or else its top.
    function reveal(item: Item): void {
        root.owed = 0;
        glide.to = root.placeFor(item);
        glide.restart();
    }

    // Goes along with what moved on the page, so that it stays where it is in the window.
    function shift(by: real): void {
        root.owed = 0;
        glide.stop();
        root.contentY = Math.max(0, root.contentY + by);
    }

    // Where to scroll to for the item to be in sight; no further than needed, nor past the end.
    function placeFor(item: Item): real {
        const top = item.mapToItem(page, 0, 0).y;
        const least = top + item.height + Theme.space5 + root.covered - root.height;
        const to = Math.min(Math.max(root.contentY, least), top - Theme.space5);
        return Math.round(Math.max(0, Math.min(to, root.contentHeight - root.height)));
    }
}
