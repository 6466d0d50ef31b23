import Brindlet.Screens

// A line on the first screen that leads to another.
GhostButton {
    id: root

    required property int index
    // The line: its symbol leads, its text follows.
    required property var model

    objectName: "link" + root.index
    symbol: root.model.lead
    text: root.model.text
}
