import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Brindlet.Screens

// Where a rule is made by hand.
Card {
    id: root

    required property RulesModel model

    implicitHeight: row.implicitHeight + 2 * Theme.space3

    // The text stays where it gives no key, for the person to see and mend it.
    function add(): void {
        if (root.model.add(field.text))
            field.clear();
        field.forceActiveFocus();
    }

    RowLayout {
        id: row

        anchors.verticalCenter: parent.verticalCenter
        x: Theme.space3
        width: parent.width - 2 * Theme.space3
        spacing: Theme.space2

        T.TextField {
            id: field

            objectName: "sender"
            Layout.fillWidth: true
            implicitHeight: 36
            leftPadding: Theme.space3
            rightPadding: Theme.space3
            verticalAlignment: TextInput.AlignVCenter
            font.family: Theme.family
            font.pixelSize: Theme.rowSize
            renderType: Text.QtRendering
            color: Theme.ink
            selectionColor: Theme.wash(Theme.lavender, 0.45)
            selectedTextColor: Theme.ink
            selectByMouse: true
            hoverEnabled: true

            onAccepted: root.add()

            background: Rectangle {
                radius: Theme.buttonRadius
                color: Theme.field
                border.width: field.activeFocus ? 2 : 1
                border.color: field.activeFocus ? Theme.lavenderInk
                            : field.hovered ? Theme.ink3 : Theme.line
            }
            Txt {
                anchors.verticalCenter: parent.verticalCenter
                x: field.leftPadding
                width: field.width - x - field.rightPadding
                visible: field.text === "" && field.preeditText === ""
                text: root.model.prompt
                size: Theme.rowSize
                color: Theme.ink3
                elide: Text.ElideRight
                Accessible.ignored: true
            }

            Accessible.role: Accessible.EditableText
            Accessible.name: root.model.prompt
        }
        MenuPicker {
            objectName: "kind"
            Layout.preferredWidth: 210
            choices: root.model.kinds
            label: root.model.kindName
            onAsked: index => root.model.chooseKind(index)
        }
        MenuPicker {
            objectName: "verdict"
            Layout.preferredWidth: 104
            choices: root.model.verdicts
            label: root.model.verdictName
            onAsked: index => root.model.chooseVerdict(index)
        }
        PrimaryButton {
            objectName: "add"
            implicitHeight: 36
            text: root.model.addLabel
            onClicked: root.add()
        }
    }
}
