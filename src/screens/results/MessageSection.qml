import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// The messages of the open category, in a frame of at most eight rows.
ColumnLayout {
    id: root

    required property MessagesModel messages
    required property string name
    required property string scrollLine
    readonly property int mostRows: 8

    spacing: 0

    Rectangle {
        Layout.fillWidth: true
        implicitHeight: 1
        color: Theme.line
    }
    RowList {
        id: list

        objectName: "messages"
        Layout.fillWidth: true
        Layout.topMargin: 5
        Layout.bottomMargin: 5
        Layout.preferredHeight: Math.min(count, root.mostRows) * Theme.rowHeight
        name: root.name
        model: root.messages
        currentIndex: 0

        delegate: MessageRow {}
    }
    Txt {
        objectName: "scrollLine"
        Layout.alignment: Qt.AlignHCenter
        Layout.topMargin: Theme.space1
        Layout.bottomMargin: Theme.space3
        visible: list.count > root.mostRows
        text: root.scrollLine
        size: 11
        color: Theme.ink3
    }
}
