import QtQuick
import QtQuick.Templates as T
import Brindlet.Screens

// A field that narrows what is shown. Shows what the model is filtered by and only asks for other
// words; Escape and the button at its end ask for none.
T.TextField {
    id: root

    required property string words
    required property string prompt
    required property string symbol
    required property string clearLabel
    // How much is left; stands at the end of the field.
    property string outcome: ""
    signal asked(string words)

    implicitHeight: 34
    leftPadding: 34
    rightPadding: text === "" ? Theme.space3 : end.width + 14
    verticalAlignment: TextInput.AlignVCenter
    font.family: Theme.family
    font.pixelSize: Theme.rowSize
    renderType: Text.QtRendering
    color: Theme.ink
    selectionColor: Theme.wash(Theme.lavender, 0.45)
    selectedTextColor: Theme.ink
    selectByMouse: true
    hoverEnabled: true
    text: words

    onTextEdited: root.asked(root.text)
    Keys.onEscapePressed: event => {
        event.accepted = root.text !== "";
        if (event.accepted)
            root.clear();
    }

    function clear(): void {
        root.asked("");
        root.forceActiveFocus();
    }

    background: Rectangle {
        radius: Theme.buttonRadius
        color: Theme.field
        border.width: root.activeFocus ? 2 : 1
        border.color: root.activeFocus ? Theme.lavenderInk
                    : root.hovered ? Theme.ink3 : Theme.line
    }
    Symbol {
        x: 10
        anchors.verticalCenter: parent.verticalCenter
        symbol: root.symbol
        color: Theme.ink3
        size: 16
    }
    Txt {
        anchors.verticalCenter: parent.verticalCenter
        x: root.leftPadding
        width: root.width - x - Theme.space3
        visible: root.text === "" && root.preeditText === ""
        text: root.prompt
        size: Theme.rowSize
        color: Theme.ink3
        elide: Text.ElideRight
        Accessible.ignored: true
    }
    Row {
        id: end

        anchors.verticalCenter: parent.verticalCenter
        anchors.right: parent.right
        anchors.rightMargin: 5
        visible: root.text !== ""
        spacing: 5

        Txt {
            objectName: root.objectName + "Outcome"
            anchors.verticalCenter: parent.verticalCenter
            text: root.outcome
            size: Theme.smallSize
            color: Theme.ink2
        }
        GhostButton {
            objectName: root.objectName + "Clear"
            implicitWidth: 24
            implicitHeight: 24
            focusPolicy: Qt.NoFocus
            symbol: "xmark.circle.fill"
            tint: Theme.ink3
            help: root.clearLabel
            onClicked: root.clear()
        }
    }

    Accessible.role: Accessible.EditableText
    Accessible.name: root.prompt
    Accessible.description: root.outcome
}
