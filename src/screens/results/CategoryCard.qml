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
    required property string badgeHelp
    required property bool expanded
    required property string stateName
    required property string chevron
    required property string scrollLine
    required property MessagesModel messages
    required property string messagesName
    signal toggled()
    signal focusCame(item: Item)

    objectName: "category" + index
    implicitHeight: column.implicitHeight

    ColumnLayout {
        id: column

        width: parent.width
        spacing: 0

        CategoryHeader {
            objectName: "categoryHeader" + root.index
            Layout.fillWidth: true
            label: root.label
            count: root.count
            badge: root.badge
            badgeTone: root.badgeTone
            badgeHelp: root.badgeHelp
            stateName: root.stateName
            chevron: root.chevron
            onClicked: root.toggled()
            onVisualFocusChanged: if (visualFocus) root.focusCame(this)
        }
        Loader {
            Layout.fillWidth: true
            active: root.expanded
            visible: active
            sourceComponent: MessageSection {
                messages: root.messages
                name: root.messagesName
                scrollLine: root.scrollLine
                onFocusCame: root.focusCame(this)
            }
        }
    }
}
