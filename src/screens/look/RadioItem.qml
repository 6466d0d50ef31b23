import QtQuick
import QtQuick.Templates as T

// One of a group that exclude each other. Shows what the model says is chosen and only asks for
// another.
T.RadioButton {
    id: root

    required property int index
    required property bool chosen
    readonly property RadioGroup group: parent as RadioGroup

    focusPolicy: group !== null && group.stop === index ? Qt.StrongFocus : Qt.ClickFocus
    hoverEnabled: true
    // The others are the model's affair.
    autoExclusive: false
    checked: chosen

    onChosenChanged: checked = chosen
    onClicked: root.ask()
    onActiveFocusChanged: root.group?.notice(root.index, root.activeFocus)
    Keys.onReturnPressed: root.ask()
    Keys.onEnterPressed: root.ask()
    Keys.onPressed: event => event.accepted = root.group.walk(event.key)

    function ask(): void {
        root.checked = root.chosen;
        root.group.asked(root.index);
    }

    Accessible.role: Accessible.RadioButton
    Accessible.name: root.text
    Accessible.checkable: true
    Accessible.checked: root.chosen
    Accessible.onPressAction: root.ask()
    Accessible.onToggleAction: root.ask()
}
