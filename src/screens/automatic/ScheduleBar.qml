import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// Whether it runs by itself, and when next.
Card {
    id: root

    required property AutomaticModel model

    implicitHeight: body.implicitHeight + 2 * Theme.space3

    ColumnLayout {
        id: body

        x: Theme.space4
        y: Theme.space3
        width: root.width - 2 * x
        spacing: 0

        ToggleSwitch {
            objectName: "schedule"
            focus: true
            text: root.model.enableLabel
            on: root.model.enabled
            onAsked: on => root.model.setEnabled(on)
        }
        Txt {
            objectName: "summary"
            Layout.fillWidth: true
            Layout.leftMargin: 36 + Theme.space3
            text: root.model.summary
            size: Theme.smallSize
            color: Theme.ink2
            elide: Text.ElideRight
        }
    }
}
