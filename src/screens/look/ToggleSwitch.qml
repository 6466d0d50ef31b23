import QtQuick
import QtQuick.Templates as T

// A switch that shows `on` and only asks for a change: what is on is the session's to say.
T.Switch {
    id: root

    required property bool on
    signal asked(bool on)

    implicitWidth: implicitContentWidth
    implicitHeight: 32
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    opacity: enabled ? 1 : 0.45
    checked: on

    onOnChanged: checked = on
    onClicked: root.ask()
    Keys.onReturnPressed: root.ask()
    Keys.onEnterPressed: root.ask()

    function ask(): void {
        const wanted = !root.on;
        root.checked = root.on;
        root.asked(wanted);
    }

    indicator: Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        width: 36
        height: 22
        radius: 11
        color: root.on ? Theme.lavenderInk : Theme.press
        border.width: root.on ? 0 : 1
        border.color: Theme.line

        Behavior on color {
            ColorAnimation {
                duration: Theme.quick
            }
        }
        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            x: root.on ? parent.width - width - 3 : 3
            width: 16
            height: 16
            radius: 8
            color: root.on ? (Theme.dark ? Theme.onTint : "#ffffff") : Theme.ink2

            Behavior on x {
                NumberAnimation {
                    duration: Theme.quick
                    easing.type: Easing.OutCubic
                }
            }
        }
        FocusRing {
            control: root
            around: 11
        }
    }
    contentItem: Txt {
        leftPadding: root.indicator.width + Theme.space3
        text: root.text
        size: Theme.rowSize
        wrapMode: Text.WordWrap
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }

    Accessible.role: Accessible.CheckBox
    Accessible.name: root.text
    Accessible.checkable: true
    Accessible.checked: root.on
    Accessible.onPressAction: root.ask()
    Accessible.onToggleAction: root.ask()
}
