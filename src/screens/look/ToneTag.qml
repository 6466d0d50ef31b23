import QtQuick
import Brindlet.Screens

// A tag whose colour says what it means.
Tag {
    id: root

    required property int tone
    property string help: ""

    tint: tone === Tone.Green ? Theme.green : tone === Tone.Orange ? Theme.orange : Theme.lavender
    ink: tone === Tone.Green ? Theme.greenInk
       : tone === Tone.Orange ? Theme.orangeInk : Theme.lavenderInk

    HoverHandler {
        id: hover

        enabled: root.help !== ""
    }
    HelpSpot {
        control: root
        text: root.help
        wanted: hover.hovered
    }
}
