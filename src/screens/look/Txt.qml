import QtQuick

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

    Accessible.role: Accessible.StaticText
    Accessible.name: root.text
    Accessible.ignored: root.text === ""
}
