import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// How far a move is, or how the last one ended.
Item {
    id: root

    required property MoveModel model
    readonly property color ink: model.statusTone === Tone.Orange ? Theme.orangeInk
                                                                  : Theme.greenInk

    implicitHeight: row.implicitHeight

    RowLayout {
        id: row

        anchors.left: parent.left
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        spacing: Theme.space3

        Symbol {
            visible: root.model.statusSymbol !== ""
            symbol: root.model.statusSymbol
            color: root.ink
            size: 20
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 3

            Txt {
                objectName: "moveTitle"
                Layout.fillWidth: true
                visible: text !== ""
                text: root.model.statusTitle
                size: Theme.rowSize
                weight: Font.DemiBold
                elide: Text.ElideRight
                horizontalAlignment: Text.AlignLeft
            }
            Txt {
                objectName: "moveText"
                Layout.fillWidth: true
                visible: root.model.statusText !== ""
                // Led by a mark of direction: it may begin with a name in a script from the right.
                text: "\u200e" + root.model.statusText
                size: Theme.rowSize
                weight: root.model.statusTitle === "" ? Font.Medium : Font.Normal
                color: root.model.statusTitle === "" ? Theme.ink : Theme.ink2
                wrapMode: Text.Wrap
                horizontalAlignment: Text.AlignLeft
                Accessible.name: root.model.statusText
            }
            Txt {
                objectName: "moveCount"
                Layout.fillWidth: true
                visible: text !== ""
                text: root.model.count
                size: Theme.smallSize
                color: Theme.ink2
                Accessible.ignored: true
            }
            ProgressBar {
                objectName: "moveProgress"
                Layout.fillWidth: true
                Layout.topMargin: 3
                visible: root.model.count !== ""
                label: root.model.progressName
                count: root.model.count
                value: root.model.share
            }
        }
    }

    Accessible.role: Accessible.AlertMessage
    Accessible.name: root.model.statusTitle !== "" ? root.model.statusTitle
                                                   : root.model.statusText
    Accessible.description: root.model.statusTitle !== "" ? root.model.statusText : ""
}
