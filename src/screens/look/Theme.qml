pragma Singleton
import QtQuick

// Every colour, size and duration of the window. Dark is the first look; the light one keeps the
// exact tints as washes only and writes in darker inks of the same hue, for the contrast.
QtObject {
    property bool dark: true
    // The person wants nothing to move: what would is at its end at once.
    property bool still: false
    // The focus shows to those who steer by the keyboard.
    property bool keyboardLeads: false

    readonly property color ground: dark ? "#13111c" : "#f6f4fb"
    readonly property color groundHigh: dark ? "#1b1728" : "#fcfbff"
    readonly property color card: dark ? "#1d1a2a" : "#ffffff"
    readonly property color raised: dark ? "#282338" : "#ffffff"
    readonly property color field: dark ? "#171422" : "#f3f0fa"
    readonly property color line: dark ? "#14ffffff" : "#171e1440"
    readonly property color hover: dark ? "#0dffffff" : "#0a1e1440"
    readonly property color press: dark ? "#1affffff" : "#161e1440"
    readonly property color track: dark ? "#1affffff" : "#161e1440"
    // Over what is not to be used now.
    readonly property color veil: dark ? "#a6070510" : "#592a2145"
    readonly property color shadow: dark ? "#80000000" : "#26301a60"

    readonly property color ink: dark ? "#f3f0fb" : "#1c1730"
    readonly property color ink2: dark ? "#b3acc7" : "#5b5473"
    readonly property color ink3: dark ? "#9c95b0" : "#686181"

    readonly property color lavender: "#c79eff"
    readonly property color blue: "#73ccff"
    readonly property color orange: "#ffa64d"
    readonly property color green: "#73d999"
    readonly property color lavenderInk: dark ? lavender : "#673cc1"
    readonly property color blueInk: dark ? blue : "#0a639b"
    readonly property color orangeInk: dark ? orange : "#8c4906"
    readonly property color greenInk: dark ? green : "#136d44"
    // Text on a full tint, in both looks.
    readonly property color onTint: "#191327"
    // How much of a tint washes a pill or a chosen row, a bar across the page, a button, and one
    // under the pointer. What is written there must stand out from it by 4.5 to 1.
    readonly property real washStrength: dark ? 0.14 : 0.2
    readonly property real barStrength: dark ? 0.1 : 0.14
    readonly property real boxStrength: dark ? 0.13 : 0.11
    readonly property real boxHoverStrength: dark ? 0.19 : 0.17
    // And how much of it lights the middle of a page.
    readonly property real glowStrength: dark ? 0.2 : 0.3

    readonly property string family: "Inter"
    readonly property int displaySize: 34
    readonly property int titleSize: 30
    readonly property int headSize: 17
    readonly property int bodySize: 14
    readonly property int rowSize: 13
    readonly property int smallSize: 12
    readonly property int microSize: 10

    readonly property int space1: 4
    readonly property int space2: 8
    readonly property int space3: 12
    readonly property int space4: 16
    readonly property int space5: 24
    readonly property int space6: 32
    readonly property int space7: 48

    readonly property int measure: 900
    readonly property int rowHeight: 44
    readonly property int headerHeight: 54
    readonly property int rowRadius: 8
    readonly property int buttonRadius: 9
    readonly property int mainButtonRadius: 12
    readonly property int cardRadius: 14
    readonly property int barRadius: 16
    readonly property int sheetRadius: 20

    readonly property int quick: still ? 0 : 120
    readonly property int steady: still ? 0 : 220
    readonly property int calm: still ? 0 : 260
    readonly property int slow: still ? 0 : 300
    // Once round, of what turns while something is under way.
    readonly property int turn: 900
    // How soon after the first click of a double one the second may come.
    readonly property int doubleClick: 400
    // How long the pointer rests on a control before its help stands.
    readonly property int patience: 600

    function wash(tint: color, strength: real): color {
        return Qt.rgba(tint.r, tint.g, tint.b, strength);
    }
}
