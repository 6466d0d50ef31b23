import QtQuick

// Words. Where they are cut short, all of them stand once the pointer rests on them.
Text {
    id: root

    property int size: Theme.bodySize
    property int weight: Font.Normal

    color: Theme.ink
    font.family: Theme.family
    font.pixelSize: size
    font.weight: weight
    textFormat: Text.PlainText
    renderType: Text.QtRendering

    HoverHandler {
        id: hover

        enabled: root.truncated
    }
    HelpSpot {
        control: root
        text: root.truncated ? root.text : ""
        wanted: hover.hovered
    }

    Accessible.role: Accessible.StaticText
    // Said outright: for a heading the toolkit goes by the order in which it meets the bindings.
    Accessible.focusable: false
    Accessible.name: root.text
    Accessible.ignored: root.text === ""
}
