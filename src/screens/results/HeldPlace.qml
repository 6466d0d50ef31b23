import QtQuick
import Brindlet.Screens

// Keeps the card that was last opened or closed where it is in the window, whatever grows or goes
// above it, and brings what it opens into sight.
Connections {
    id: root

    required property ScrollPage page
    property CategoryCard card: null
    property real lastY: 0

    target: card
    onCardChanged: root.lastY = root.card !== null ? root.card.y : 0

    function onYChanged(): void {
        root.page.contentY = Math.max(0, root.page.contentY + root.card.y - root.lastY);
        root.lastY = root.card.y;
    }

    function onHeightChanged(): void {
        if (root.card.section !== null)
            root.page.reveal(root.card);
    }
}
