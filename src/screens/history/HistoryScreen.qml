import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

FocusScope {
    id: root

    required property HistoryModel model

    objectName: "historyScreen"
    focus: true

    Keys.onEscapePressed: root.model.back()
    Component.onCompleted: (scans.current ?? back).focus = true

    ScrollPage {
        objectName: "historyPage"
        anchors.fill: parent

        BackButton {
            id: back

            objectName: "back"
            help: root.model.backName
            onClicked: root.model.back()
        }
        ColumnLayout {
            Layout.fillWidth: true
            Layout.bottomMargin: Theme.space1
            spacing: 6

            PageTitle {
                text: root.model.title
            }
            Txt {
                objectName: "count"
                Layout.fillWidth: true
                visible: text !== ""
                text: root.model.count
                size: Theme.rowSize
                color: Theme.ink2
                elide: Text.ElideRight
            }
        }
        NothingSorted {
            Layout.fillWidth: true
            visible: root.model.nothing !== ""
            text: root.model.nothing
        }
        TaughtRules {
            Layout.fillWidth: true
            Layout.topMargin: Theme.space2
            Layout.bottomMargin: Theme.space3
            model: root.model
        }
        Card {
            Layout.fillWidth: true
            visible: scans.count > 0
            implicitHeight: scans.height

            RowStack {
                id: scans

                width: parent.width
                name: root.model.scansName
                model: root.model.scans

                delegate: ScanRow {
                    id: scan

                    onMenuAsked: place => menu.ask(scan, place)
                }
            }
        }
        BinCard {
            Layout.fillWidth: true
            Layout.topMargin: Theme.space3
            model: root.model
        }
        RowLayout {
            Layout.fillWidth: true
            Layout.topMargin: Theme.space3
            visible: root.model.forgetLabel !== ""
            spacing: Theme.space3

            GhostButton {
                objectName: "forgetSorted"
                text: root.model.forgetLabel
                boxed: true
                onClicked: root.model.forgetSorted()
            }
            Txt {
                text: root.model.forgetNote
                size: Theme.smallSize
                color: Theme.ink3
            }
        }
    }
    ScanMenu {
        id: menu

        model: root.model
    }
}
