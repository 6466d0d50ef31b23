import QtQuick
import QtQuick.Templates as T

// The list that drops down from a picker.
T.Popup {
    id: root

    // The picker's own delegates; the toolkit has no name for their type.
    required property var rows
    required property int current
    required property string title

    implicitHeight: Math.min(implicitContentHeight + 2 * padding, 280)
    padding: 5
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent

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
        model: root.visible ? root.rows : null
        currentIndex: root.current
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        highlightMoveDuration: 0

        T.ScrollBar.vertical: SectionScrollBar {}

        Accessible.role: Accessible.List
        Accessible.name: root.title
    }
}
