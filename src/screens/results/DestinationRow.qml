import QtQuick
import Brindlet.Screens

// One folder that junk may be filed into.
ContextMenuRow {
    id: root

    required property int index
    required property string label
    required property string help
    required property bool chosen
    required symbol

    objectName: "destination" + index
    text: label
    symbolTint: Theme.lavenderInk
    indented: true

    HelpSpot {
        control: root
        text: root.help !== "" ? root.help : root.truncated ? root.label : ""
        wanted: root.hovered || (root.highlighted && Theme.keyboardLeads)
    }

    Accessible.description: root.help
    Accessible.checkable: true
    Accessible.checked: root.chosen
}
