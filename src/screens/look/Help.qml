pragma Singleton
import QtQuick

// The one help text of the window and the control that it belongs to. A control offers its text and
// takes it back; the text stands once the pointer or the keyboard has rested there.
QtObject {
    id: root

    property Item control: null
    property string text: ""
    property bool shown: false

    readonly property Timer patience: Timer {
        interval: Theme.patience
        onTriggered: root.shown = root.control !== null
    }

    function offer(control: Item, text: string): void {
        root.text = text;
        if (root.control === control)
            return;
        root.control = control;
        root.shown = false;
        root.patience.restart();
    }

    function takeBack(control: Item): void {
        if (root.control !== control)
            return;
        root.dismiss();
        root.control = null;
    }

    // What stood somewhere else now must be found again.
    function defer(): void {
        if (!root.shown && !root.patience.running)
            return;
        root.shown = false;
        root.patience.restart();
    }

    // Until the next control offers one: whoever acts has read enough.
    function dismiss(): void {
        root.patience.stop();
        root.shown = false;
    }
}
