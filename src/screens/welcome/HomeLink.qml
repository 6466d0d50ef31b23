import Brindlet.Screens

// A line on the first screen that leads to another.
GhostButton {
    id: root

    required property string lead
    required text

    symbol: root.lead
}
