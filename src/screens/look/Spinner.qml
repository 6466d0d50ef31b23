import QtQuick
import Brindlet.Screens

// Turns while something is under way; says nothing itself.
Ring {
    id: root

    property int size: 16

    implicitWidth: size
    implicitHeight: size
    thickness: Math.max(2, size / 9)
    track: Theme.track
    from: Theme.blue
    to: Theme.lavender
    value: 0.3

    RotationAnimation on rotation {
        running: root.visible
        loops: Animation.Infinite
        from: 0
        to: 360
        duration: 900
    }

    Accessible.ignored: true
}
