import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// How often it runs, and what it then does.
ColumnLayout {
    id: root

    required property AutomaticModel model

    spacing: Theme.space2

    SectionLabel {
        Layout.fillWidth: true
        Layout.leftMargin: Theme.space1
        text: root.model.cadenceTitle
    }
    RadioGroup {
        Layout.fillWidth: true
        columnSpacing: Theme.space2
        name: root.model.cadenceTitle
        chosen: root.model.cadences.chosen
        model: root.model.cadences
        onAsked: row => root.model.chooseCadence(row)

        delegate: Chip {
            Layout.fillWidth: true
        }
    }
    SectionLabel {
        Layout.fillWidth: true
        Layout.leftMargin: Theme.space1
        Layout.topMargin: Theme.space4
        text: root.model.modeTitle
    }
    RadioGroup {
        Layout.fillWidth: true
        columns: 1
        rowSpacing: Theme.space2
        name: root.model.modeTitle
        chosen: root.model.modes.chosen
        model: root.model.modes
        onAsked: row => root.model.chooseMode(row)

        delegate: ModeCard {
            Layout.fillWidth: true
        }
    }
    Item {
        Layout.fillHeight: true
    }
    PrimaryButton {
        objectName: "runNow"
        Layout.topMargin: Theme.space4
        Layout.alignment: Qt.AlignRight
        text: root.model.runNowLabel
        enabled: root.model.canRun
        onClicked: root.model.runNow()
    }
}
