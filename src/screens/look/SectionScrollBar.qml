import QtQuick
import QtQuick.Templates as T

// A slim bar, there only when there is something to scroll.
T.ScrollBar {
    id: root

    implicitWidth: 10
    padding: 2
    minimumSize: 0.06
    policy: T.ScrollBar.AlwaysOn
    visible: size < 1

    contentItem: Rectangle {
        implicitWidth: 6
        radius: 3
        color: root.pressed ? Theme.ink3 : Theme.wash(Theme.ink3, root.hovered ? 0.6 : 0.4)
    }

    Accessible.ignored: true
}
