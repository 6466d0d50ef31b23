import QtQuick
import QtQuick.Templates as T

// A field for what nobody is to see. The toolkit gives the `text` of any field to whoever asks it as
// a screen reader does, so here that is what is drawn; `secret` tells the rest.
T.TextField {
    id: root

    required property string label
    required property string prompt
    readonly property string text: displayText

    function secret(): string {
        return root.getText(0, root.length);
    }

    implicitHeight: 38
    leftPadding: Theme.space3
    rightPadding: Theme.space3
    verticalAlignment: TextInput.AlignVCenter
    echoMode: TextInput.Password
    inputMethodHints: Qt.ImhHiddenText | Qt.ImhSensitiveData | Qt.ImhNoPredictiveText
                      | Qt.ImhNoAutoUppercase
    font.family: Theme.family
    font.pixelSize: Theme.bodySize
    renderType: Text.QtRendering
    color: Theme.ink
    selectionColor: Theme.wash(Theme.lavender, 0.45)
    selectedTextColor: Theme.ink
    selectByMouse: true
    hoverEnabled: true

    background: Rectangle {
        radius: Theme.buttonRadius
        color: Theme.field
        border.width: root.activeFocus ? 2 : 1
        border.color: root.activeFocus ? Theme.lavenderInk
                    : root.hovered ? Theme.ink3 : Theme.line
    }
    Txt {
        anchors.verticalCenter: parent.verticalCenter
        x: root.leftPadding
        visible: root.length === 0 && root.preeditText === ""
        text: root.prompt
        size: Theme.bodySize
        color: Theme.ink3
        Accessible.ignored: true
    }

    // The toolkit keeps even the name of such a field to itself: it needs a title that is read.
    Accessible.role: Accessible.EditableText
    Accessible.passwordEdit: true
    Accessible.name: root.label
}
