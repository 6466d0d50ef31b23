import QtQuick
import Brindlet.Screens

// Keeps the card that was last opened or closed where it is in the window, whatever grows or goes
// above it, and brings what it opens into sight.
QtObject {
    id: root

    required property ScrollPage page
    property CategoryCard card: null
    property real lastY: 0

    onCardChanged: root.lastY = root.card !== null ? root.card.y : 0

    readonly property Connections watch: Connections {
        target: root.card

        function onYChanged(): void {
            root.page.contentY = Math.max(0, root.page.contentY + root.card.y - root.lastY);
            root.lastY = root.card.y;
        }

        function onHeightChanged(): void {
            if (root.card.section !== null)
                root.page.reveal(root.card);
        }
    }
}
