import QtQuick
import QtQuick.Templates as T
import QtQml.Models
import Brindlet.Screens

// Where junk goes: opens at its parent, a button, and gives the keyboard back to it.
ContextMenu {
    id: root

    required property DestinationsModel destinations
    property bool above: false
    property int widest: 340
    signal asked(row: int)

    objectName: "destinationMenu"
    y: above ? -height - 4 : parent.height + 4
    implicitWidth: Math.min(Math.max(190, root.widestRow() + 2 * padding), widest)
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent

    onClosed: root.parent.forceActiveFocus()

    function adopt(row: DestinationRow): void {
        row.triggered.connect(() => root.asked(row.index));
        root.insertItem(row.index, row);
    }

    function widestRow(): real {
        let widest = 0;
        for (let i = 0; i < root.count; ++i)
            widest = Math.max(widest, root.itemAt(i).implicitWidth);
        return widest;
    }

    function toggle(): void {
        if (root.visible) {
            root.close();
            return;
        }
        root.open();
        root.currentIndex = Theme.keyboardLeads ? 0 : -1;
    }

    Instantiator {
        model: root.destinations
        onObjectAdded: (index, object) => root.adopt(object as DestinationRow)
        onObjectRemoved: (index, object) => root.removeItem(object as DestinationRow)

        DestinationRow {}
    }
}
