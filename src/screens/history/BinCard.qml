import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// The deleted scans, as long as there are any.
ColumnLayout {
    id: root

    required property HistoryModel model

    visible: binned.count > 0
    spacing: Theme.space2

    RowLayout {
        Layout.fillWidth: true
        spacing: Theme.space2

        SectionLabel {
            Layout.fillWidth: true
            Layout.leftMargin: Theme.space1
            text: root.model.binTitle
            note: root.model.binNote
        }
        GhostButton {
            objectName: "emptyBin"
            text: root.model.emptyLabel
            boxed: root.model.emptyAsked
            tint: root.model.emptyAsked ? Theme.orangeInk : Theme.ink2
            onClicked: root.model.emptyBin()
        }
    }
    Card {
        Layout.fillWidth: true
        implicitHeight: binned.height

        RowStack {
            id: binned

            width: parent.width
            name: root.model.binName
            model: root.model.bin

            delegate: DeletedScanRow {}
        }
    }
}
