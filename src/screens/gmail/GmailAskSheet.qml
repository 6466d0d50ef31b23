import QtQuick
import Brindlet.Screens

// Asks whether Brindlet may file mail on Gmail by itself. What is typed into it goes with it.
Sheet {
    id: root

    required property GmailAskModel model
    readonly property GmailAskPanel panel: loader.item as GmailAskPanel
    readonly property bool still: settled && panel?.settled !== false

    width: 660
    height: Math.min(parent.height - 2 * Theme.space5, panel?.implicitHeight ?? 0)
    wanted: model.asked

    onAboutToShow: loader.setSource("GmailAskPanel.qml", { "model": root.model })
    onClosed: loader.source = ""
    onDismissed: root.model.decline()

    Loader {
        id: loader

        anchors.fill: parent
        focus: true
    }
}
