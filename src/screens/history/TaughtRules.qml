import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// The rules that last, in a frame that scrolls, as long as there are any.
ColumnLayout {
    id: root

    required property HistoryModel model
    readonly property int mostHeight: 6 * 58

    visible: list.count > 0
    spacing: Theme.space2

    SectionLabel {
        Layout.fillWidth: true
        Layout.leftMargin: Theme.space1
        text: root.model.rulesTitle
    }
    RuleList {
        id: list

        objectName: "taughtRules"
        Layout.fillWidth: true
        Layout.preferredHeight: Math.min(contentHeight, root.mostHeight)
        rules: root.model.rules
    }
}
