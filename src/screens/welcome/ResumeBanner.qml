import QtQuick
import QtQuick.Window
import Brindlet.Screens

// Offers to finish a move that was interrupted, or to let the rest of it be.
Banner {
    id: root

    required property ResumeModel model
    readonly property Item focusItem: Window.activeFocusItem
    // The keyboard was on the button that cannot be pressed for a while, and went nowhere since.
    property bool owesFocus: false
    signal forgotten

    visible: model.shown
    symbol: model.symbol
    title: model.title
    text: model.line
    trouble: model.error
    tint: Theme.lavender
    ink: Theme.lavenderInk

    onFocusItemChanged: {
        if (root.focusItem !== null && root.focusItem.activeFocusOnTab)
            root.owesFocus = root.owesFocus && root.focusItem === resume;
    }

    Spinner {
        objectName: "resumeWait"
        anchors.verticalCenter: parent.verticalCenter
        visible: root.model.waiting
    }
    GhostButton {
        id: resume

        objectName: "resume"
        text: root.model.resumeLabel
        boxed: true
        tint: Theme.lavenderInk
        enabled: root.model.canResume
        onClicked: {
            root.owesFocus = activeFocus;
            root.model.resume();
        }
        onEnabledChanged: {
            if (enabled && root.owesFocus)
                forceActiveFocus();
        }
    }
    GhostButton {
        objectName: "forget"
        text: root.model.forgetLabel
        onClicked: {
            root.model.forget();
            root.forgotten();
        }
    }

    Accessible.role: Accessible.AlertMessage
    Accessible.name: root.title
    Accessible.description: root.trouble === "" ? root.text : root.text + " " + root.trouble
}
