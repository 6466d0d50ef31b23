import QtQuick
import Brindlet.Screens

// What the session offers after a correction, floating over the foot of the page. The keyboard
// comes here from a place of its own in the order of Tab and goes on from there: in the order of
// the items the bars would stand behind everything on the page.
Item {
    id: root

    required property UndoModel undo
    required property OfferModel offer
    readonly property bool shown: undoBar.shown || offerBar.shown
    readonly property bool settled: undoBar.settled && offerBar.settled
    // How much of the page they cover.
    readonly property real covered: shown ? height + Theme.space5 : 0
    // The keyboard goes on beyond the last button, or back before the first.
    signal passed(forward: bool)

    height: column.height

    Keys.onTabPressed: root.step(1)
    Keys.onBacktabPressed: root.step(-1)

    // Comes in at the first button, or at the last.
    function enter(forward: bool): void {
        const stops = root.stops();
        root.take(stops[forward ? 0 : stops.length - 1], forward);
    }

    function step(by: int): void {
        const stops = root.stops();
        const to = stops.findIndex(stop => stop.activeFocus) + by;
        if (to < 0 || to >= stops.length)
            root.passed(by > 0);
        else
            root.take(stops[to], by > 0);
    }

    function take(stop: Item, forward: bool): void {
        stop.forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason);
    }

    // The offer first: it is about what was just done.
    function stops(): var {
        const all = offerBar.shown ? offerBar.stops() : [];
        if (undoBar.shown)
            all.push(undoBar.button);
        return all;
    }

    Column {
        id: column

        width: parent.width
        spacing: Theme.space3

        UndoBar {
            id: undoBar

            objectName: "undoBar"
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(implicitWidth, root.width)
            model: root.undo
        }
        RuleOffer {
            id: offerBar

            objectName: "offerBar"
            anchors.horizontalCenter: parent.horizontalCenter
            width: root.width
            model: root.offer
        }
    }
}
