import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// What has left the folder; opens to its messages, any of which can be put back.
FoldingCard {
    id: root

    required property MovedListModel model
    // In what the section holds.
    readonly property bool hasKeyboard: loader.activeFocus
    signal toggled

    implicitHeight: column.implicitHeight
    visible: model.shown
    opened: model.expanded

    onOpenedChanged: {
        if (root.opened)
            loader.setSource("MovedList.qml", { "messages": root.model });
        else
            loader.source = "";
    }

    function find(): void {
        (loader.item as MovedList).find();
    }

    ColumnLayout {
        id: column

        width: parent.width
        spacing: 0

        MovedHeader {
            Layout.fillWidth: true
            model: root.model
            onToggled: root.toggled()
        }
        Loader {
            id: loader

            Layout.fillWidth: true
            visible: status === Loader.Ready
        }
    }
}
