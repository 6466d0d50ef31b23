import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// What of the mailbox to take, and the button that starts it.
Item {
    id: root

    required property PickModel model

    implicitHeight: body.implicitHeight

    ColumnLayout {
        id: body

        anchors.fill: parent
        spacing: 0

        Txt {
            Layout.topMargin: Theme.space2
            text: root.model.reachTitle
            size: Theme.microSize
            weight: Font.DemiBold
            font.letterSpacing: 0.6
            color: Theme.ink3
        }
        MenuPicker {
            objectName: "reach"
            Layout.fillWidth: true
            Layout.topMargin: Theme.space2
            choices: root.model.reaches
            label: root.model.reachTitle
            onAsked: index => root.model.chooseReach(index)
        }
        MenuPicker {
            objectName: "limit"
            Layout.fillWidth: true
            Layout.topMargin: Theme.space2
            choices: root.model.limits
            label: root.model.limitName
            onAsked: index => root.model.chooseLimit(index)
        }
        ToggleSwitch {
            objectName: "skip"
            Layout.fillWidth: true
            Layout.topMargin: Theme.space4
            text: root.model.skipLabel
            on: root.model.skips
            onAsked: on => root.model.setSkips(on)
        }
        Item {
            Layout.fillHeight: true
        }
        Txt {
            objectName: "count"
            Layout.fillWidth: true
            Layout.topMargin: Theme.space3
            Layout.bottomMargin: Theme.space5
            horizontalAlignment: Text.AlignHCenter
            text: root.model.count
            size: Theme.headSize
            weight: Font.DemiBold
        }
        OrbButton {
            objectName: "sort"
            Layout.alignment: Qt.AlignHCenter
            Layout.bottomMargin: Theme.space3
            text: root.model.sortLabel
            enabled: root.model.canSort
            onClicked: root.model.sort()
        }
    }
}
