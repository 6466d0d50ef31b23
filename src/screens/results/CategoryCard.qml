import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// One category; opens to its messages.
Card {
    id: root

    required property int index
    required property string label
    required property string count
    required property string badge
    required property int badgeTone
    required property string description
    required property bool expanded
    required property string chevron
    required property string scrollLine
    required property ResultsModel results

    implicitHeight: column.implicitHeight

    ColumnLayout {
        id: column

        width: parent.width
        spacing: 0

        CategoryHeader {
            objectName: "category" + root.index
            Layout.fillWidth: true
            label: root.label
            count: root.count
            badge: root.badge
            badgeTone: root.badgeTone
            description: root.description
            chevron: root.chevron
            onClicked: root.results.toggleCategory(root.index)
        }
        MessageSection {
            Layout.fillWidth: true
            visible: root.expanded
            messages: root.expanded ? root.results.messages : null
            name: root.results.messagesName
            scrollLine: root.scrollLine
        }
    }
}
