import QtQuick
import Brindlet.Screens

// What can be done with a scan, apart from opening it.
ContextMenu {
    id: root

    required property HistoryModel model
    // Not its number: rows may come and go while the menu stands.
    property ScanRow scan: null

    objectName: "scanMenu"
    title: root.model.deleteLabel

    // The toolkit would leave the keyboard nowhere.
    onClosed: {
        if (root.scan !== null)
            root.scan.forceActiveFocus();
    }

    function ask(asked: ScanRow, place: point): void {
        asked.forceActiveFocus();
        root.scan = asked;
        root.showAt(asked, place);
        if (Theme.keyboardLeads)
            root.currentIndex = 0;
    }

    // By its base type, without which the lint falls over the call.
    function showAt(item: Item, place: point): void {
        root.popup(item, place.x, place.y);
    }

    ContextMenuRow {
        objectName: "deleteFromMenu"
        symbol: root.model.deleteSymbol
        text: root.model.deleteLabel
        onTriggered: {
            if (root.scan !== null)
                root.scan.remove();
        }
    }
}
