import QtQuick
import QtQuick.Templates as T

// One choice of a dropped-down picker.
T.ItemDelegate {
    id: root

    required property string label
    required property bool chosen

    implicitHeight: 34
    width: ListView.view ? ListView.view.width : 0
    highlighted: ListView.isCurrentItem
    hoverEnabled: true

    background: Rectangle {
        radius: Theme.rowRadius - 2
        color: root.highlighted || root.hovered ? Theme.press : "transparent"
    }
    contentItem: Item {
        Symbol {
            x: 10
            anchors.verticalCenter: parent.verticalCenter
            visible: root.chosen
            symbol: "checkmark"
            color: Theme.lavenderInk
            size: 14
        }
        Txt {
            anchors.verticalCenter: parent.verticalCenter
            x: 32
            width: parent.width - x - 8
            text: root.label
            size: Theme.rowSize
            elide: Text.ElideRight
            Accessible.ignored: true
        }
    }

    Accessible.role: Accessible.ListItem
    Accessible.name: root.label
    Accessible.selectable: true
    Accessible.selected: root.chosen
    Accessible.onPressAction: root.clicked()
}
