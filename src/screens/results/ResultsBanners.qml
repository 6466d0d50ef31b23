import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// What there is to say of the scan as a whole, if anything.
ColumnLayout {
    id: root

    required property ResultsModel model
    // No category stands below.
    required property bool empty

    visible: model.stopped || model.allMoved || model.nothing !== ""
    spacing: Theme.space3

    Banner {
        objectName: "stoppedBar"
        Layout.fillWidth: true
        visible: root.model.stopped
        symbol: root.model.stoppedSymbol
        title: root.model.stoppedTitle
        text: root.model.stoppedText

        GhostButton {
            objectName: "quit"
            text: root.model.quitLabel
            boxed: true
            tint: Theme.orangeInk
            implicitHeight: 36
            onClicked: root.model.quit()
        }
    }
    Banner {
        objectName: "allMovedBar"
        Layout.fillWidth: true
        visible: root.model.allMoved
        symbol: root.model.allMovedSymbol
        title: root.model.allMovedText
        text: root.model.allMovedNext
        tint: Theme.green
        ink: Theme.greenInk
    }
    Banner {
        objectName: "nothingBar"
        Layout.fillWidth: true
        visible: root.model.nothing !== "" && !root.empty
        symbol: "checkmark.circle"
        text: root.model.nothing
        tint: Theme.green
        ink: Theme.greenInk
    }
    EmptyResult {
        Layout.fillWidth: true
        visible: root.model.nothing !== "" && root.empty
        text: root.model.nothing
    }
}
