import QtQuick
import Brindlet.Screens

// A soft round light behind something; an image, so that it looks the same without shaders.
Image {
    id: root

    required property color tint
    property int size: 300

    width: size
    height: size
    // Half the pixels suffice: there is nothing sharp in it.
    sourceSize.width: size / 2
    sourceSize.height: size / 2
    source: ImageUrls.glow(root.tint)

    Accessible.ignored: true
}
