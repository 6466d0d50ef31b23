import QtQuick
import QtQuick.Templates as T
import Brindlet.Screens

// A line that fills from the left.
T.ProgressBar {
    id: root

    required property string label
    // What it counts, in words.
    property string count: ""

    implicitHeight: 6

    background: Rectangle {
        radius: height / 2
        color: Theme.track
    }
    contentItem: Item {
        GradientFill {
            property real share: root.visualPosition

            visible: share > 0
            width: Math.max(height, share * root.width)
            height: parent.height
            radius: height / 2
            from: Theme.lavender
            to: Theme.blue

            Behavior on share {
                NumberAnimation {
                    duration: Theme.slow
                    easing.type: Easing.OutQuad
                }
            }
        }
    }

    Accessible.role: Accessible.ProgressBar
    Accessible.name: root.label
    Accessible.description: root.count
}
