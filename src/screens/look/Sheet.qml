import QtQuick
import QtQuick.Templates as T

// A panel over the dimmed window. It takes the keyboard, keeps Tab inside, and gives the keyboard
// back when it goes. It stands as long as it is wanted: Escape only asks for its end.
T.Popup {
    id: root

    required property bool wanted
    // Gets the keyboard when what had it has gone meanwhile.
    required property Item home
    readonly property bool settled: visible === opened && visible === wanted
    property Item before: null
    signal dismissed

    parent: T.Overlay.overlay
    x: Math.round((parent.width - width) / 2)
    y: Math.round((parent.height - height) / 2)
    modal: true
    focus: true
    closePolicy: T.Popup.NoAutoClose

    onWantedChanged: {
        if (root.wanted)
            root.open();
        else
            root.close();
    }
    onAboutToShow: root.before = root.home.Window.activeFocusItem
    onClosed: (root.before !== null && root.before.visible ? root.before : root.home)
              .forceActiveFocus(Qt.PopupFocusReason)

    T.Overlay.modal: Rectangle {
        color: Theme.veil

        Behavior on opacity {
            NumberAnimation {
                duration: Theme.steady
            }
        }
    }
    enter: Transition {
        ParallelAnimation {
            NumberAnimation {
                property: "opacity"
                from: 0
                to: 1
                duration: Theme.steady
                easing.type: Easing.OutCubic
            }
            NumberAnimation {
                property: "scale"
                from: 0.96
                to: 1
                duration: Theme.steady
                easing.type: Easing.OutCubic
            }
        }
    }
    exit: Transition {
        NumberAnimation {
            property: "opacity"
            to: 0
            duration: Theme.quick
        }
    }
    background: Rectangle {
        radius: Theme.sheetRadius
        color: Theme.raised
        border.width: 1
        border.color: Theme.line

        Shadow {
            radius: Theme.sheetRadius
            blur: 40
        }
    }
    contentItem: FocusScope {
        focus: true

        Keys.onEscapePressed: root.dismissed()
    }
}
