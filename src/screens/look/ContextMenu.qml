import QtQuick
import QtQuick.Templates as T

// A menu of a thing, at the place that was asked.
T.Menu {
    id: root

    implicitWidth: 190
    implicitHeight: implicitContentHeight + 2 * padding
    padding: 5
    margins: Theme.space2

    enter: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.quick
        }
    }
    background: Rectangle {
        radius: Theme.mainButtonRadius
        color: Theme.raised
        border.width: 1
        border.color: Theme.line

        Shadow {
            radius: Theme.mainButtonRadius
            blur: 18
        }
    }
    contentItem: ListView {
        implicitHeight: contentHeight
        model: root.contentModel
        currentIndex: root.currentIndex
        interactive: false

        Accessible.role: Accessible.PopupMenu
        Accessible.name: root.title
    }
}
