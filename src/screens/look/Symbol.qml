import QtQuick
import Brindlet.Screens

// A symbol in one colour. It says nothing to a screen reader: what stands beside it does.
Image {
    id: root

    required property string symbol
    property color color: Theme.ink2
    property int size: 18

    width: size
    height: size
    sourceSize.width: size
    sourceSize.height: size
    source: ImageUrls.symbol(root.symbol, root.color)

    Accessible.ignored: true
}
