import QtQuick
import Brindlet.Screens

// Keeps the card that was last opened or closed where it is in the window, whatever grows or goes
// above it, and brings what it opens into sight.
QtObject {
    id: root

    required property ScrollPage page
    property FoldingCard card: null
    property real lastY: 0

    onCardChanged: root.lastY = root.card !== null ? root.card.y : 0

    readonly property Connections watch: Connections {
        target: root.card

        function onYChanged(): void {
            // Whoever has gone elsewhere meanwhile is not brought back.
            const onItsWay = root.soon.running || !root.page.settled;
            root.page.shift(root.card.y - root.lastY);
            root.lastY = root.card.y;
            if (onItsWay)
                root.soon.restart();
        }

        function onHeightChanged(): void {
            root.soon.restart();
        }
    }

    // When the page has taken all of its new shape.
    readonly property Timer soon: Timer {
        interval: 0
        onTriggered: root.show()
    }

    function show(): void {
        if (root.card !== null && root.card.opened)
            root.page.reveal(root.card);
    }
}
