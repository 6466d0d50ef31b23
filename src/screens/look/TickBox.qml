import QtQuick
import QtQuick.Templates as T

// A box that shows what the model's symbol says and only asks for a change.
T.CheckBox {
    id: root

    required property string symbol
    required property string label
    property string help: ""
    readonly property bool ticked: symbol === "checkmark.square.fill"
    readonly property bool partly: symbol === "minus.square.fill"
    signal asked

    implicitWidth: 28
    implicitHeight: 28
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    tristate: true
    checkState: ticked ? Qt.Checked : partly ? Qt.PartiallyChecked : Qt.Unchecked
    nextCheckState: () => root.checkState

    onClicked: root.asked()
    Keys.onReturnPressed: root.asked()
    Keys.onEnterPressed: root.asked()

    background: Rectangle {
        radius: Theme.rowRadius
        color: root.down ? Theme.press : root.hovered ? Theme.hover : "transparent"

        FocusRing {
            control: root
            around: Theme.rowRadius
            gap: 1
        }
    }
    indicator: TickSymbol {
        anchors.centerIn: parent
        symbol: root.symbol
        hovered: root.hovered
    }
    HelpSpot {
        control: root
        text: root.help
        wanted: root.hovered || (root.activeFocus && Theme.keyboardLeads)
    }

    Accessible.role: Accessible.CheckBox
    Accessible.name: root.label
    Accessible.description: root.help
    Accessible.checkable: root.symbol !== "minus.square.dashed"
    Accessible.checked: root.ticked
    Accessible.checkStateMixed: root.partly
    Accessible.onPressAction: root.asked()
    Accessible.onToggleAction: root.asked()
}
