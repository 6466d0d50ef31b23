import QtQuick
import Brindlet.Screens

// Turns while something is under way, or stands where nothing may move; says nothing itself.
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
        running: root.visible && !Theme.still
        loops: Animation.Infinite
        from: 0
        to: 360
        duration: Theme.turn
    }

    Accessible.ignored: true
}
