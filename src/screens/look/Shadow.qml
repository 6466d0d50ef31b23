import QtQuick
import Brindlet.Screens

// The shadow of a raised surface, which must be its parent and have this radius.
BorderImage {
    id: root

    property int radius: Theme.cardRadius
    property int blur: 24
    readonly property int edge: radius + 2 * blur

    anchors.fill: parent
    anchors.leftMargin: -blur
    anchors.rightMargin: -blur
    anchors.topMargin: -blur + 8
    anchors.bottomMargin: -blur - 8
    border.left: edge
    border.right: edge
    border.top: edge
    border.bottom: edge
    source: ImageUrls.shadow(root.radius, root.blur, Theme.shadow)
    z: -1

    Accessible.ignored: true
}
