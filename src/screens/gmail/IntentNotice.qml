import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// Where junk will go, or that a folder of junk is sorted the other way round.
Card {
    id: root

    required property IntentModel model
    readonly property bool backwards: model.backwards !== ""
    readonly property color ink: model.tint === IntentModel.Spam ? Theme.orangeInk
                               : model.tint === IntentModel.Own ? Theme.blueInk : Theme.lavenderInk

    objectName: "intentNotice"
    implicitHeight: body.implicitHeight + 2 * Theme.space3
    visible: model.shown

    RowLayout {
        id: body

        x: Theme.space4
        y: Theme.space3
        width: root.width - 2 * x
        spacing: Theme.space3

        Symbol {
            Layout.alignment: Qt.AlignTop
            Layout.topMargin: root.backwards ? 0 : 4
            symbol: root.model.symbol
            color: root.backwards ? Theme.lavenderInk : root.ink
            size: 20
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 5

            Txt {
                objectName: "backwards"
                Layout.fillWidth: true
                visible: root.backwards
                text: root.model.backwards
                weight: Font.DemiBold
                wrapMode: Text.WordWrap
            }
            // Placed by hand: a layout that was filled while it did not show keeps the label's place
            // as narrow as it was then.
            Item {
                Layout.fillWidth: true
                implicitHeight: destination.implicitHeight
                visible: !root.backwards

                Txt {
                    id: lead

                    anchors.verticalCenter: parent.verticalCenter
                    text: root.model.label
                    weight: Font.DemiBold
                    Accessible.ignored: true
                }
                DestinationButton {
                    id: destination

                    objectName: "destination"
                    x: Math.ceil(lead.implicitWidth) + Theme.space2
                    width: Math.min(Math.ceil(implicitWidth), parent.width - x)
                    label: root.model.label
                    text: root.model.destination
                    symbol: root.model.menuSymbol
                    ink: root.ink
                    onClicked: menu.toggle()
                    onVisibleChanged: menu.close()

                    DestinationMenu {
                        id: menu

                        destinations: root.model.destinations
                        title: root.model.label
                        above: true
                        widest: 540
                        onAsked: row => root.model.choose(row)
                    }
                }
            }
            Txt {
                objectName: "intentText"
                Layout.fillWidth: true
                text: root.model.text
                size: Theme.rowSize
                color: Theme.ink2
                wrapMode: Text.WordWrap
                lineHeight: 1.15
            }
        }
    }
}
