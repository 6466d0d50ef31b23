import QtQuick
import Brindlet.Screens
import QtQuick.Templates as T

// A choice out of a few, in a list that drops down. Shows what the model says is chosen and only
// asks for another.
T.ComboBox {
    id: root

    required property ChoicesModel choices
    required property string label
    property string help: ""
    readonly property bool truncated: (contentItem as Txt)?.truncated ?? false
    signal asked(int index)

    implicitWidth: 200
    implicitHeight: 36
    leftPadding: Theme.space3
    rightPadding: 34
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    model: choices
    textRole: "label"
    currentIndex: choices.chosen

    onActivated: index => root.ask(index)
    // At the release, because the toolkit's own picker closes the list at the release of the key.
    Keys.onReleased: event => {
        event.accepted = (event.key === Qt.Key_Return || event.key === Qt.Key_Enter)
                         && !root.popup.visible;
        if (event.accepted)
            root.popup.open();
    }

    function ask(index: int): void {
        root.asked(index);
        root.currentIndex = Qt.binding(() => root.choices.chosen);
    }

    background: Rectangle {
        radius: Theme.buttonRadius
        color: Theme.field
        border.width: 1
        border.color: root.hovered || root.popup.visible ? Theme.ink3 : Theme.line

        FocusRing {
            control: root
        }
    }
    contentItem: Txt {
        text: root.displayText
        size: Theme.rowSize
        weight: Font.Medium
        elide: Text.ElideRight
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }
    indicator: Symbol {
        x: root.width - width - 10
        y: (root.height - height) / 2
        symbol: "chevron.down"
        size: 14
    }
    delegate: MenuPickerRow {}
    popup: MenuPickerPopup {
        y: root.height + 4
        width: root.width
        rows: root.delegateModel
        current: root.highlightedIndex
        title: root.label
    }
    HelpSpot {
        control: root
        text: root.help !== "" ? root.help : root.truncated ? root.displayText : ""
        wanted: !root.popup.visible
                && (root.hovered || (root.activeFocus && Theme.keyboardLeads))
    }

    Accessible.role: Accessible.ComboBox
    Accessible.name: root.label
    Accessible.description: root.help === "" ? root.displayText
                                             : root.displayText + ", " + root.help
    Accessible.onPressAction: root.popup.visible ? root.popup.close() : root.popup.open()
}
