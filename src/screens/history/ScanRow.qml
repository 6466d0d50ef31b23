import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// One past scan; opens to what it found and moved.
StackRow {
    id: root

    required property string date
    required property string place
    required property string sorted
    required property string moved
    required property string chevron
    required property bool expanded
    required property string description
    required property string junk
    required property string movedInto
    required property string movedTitle
    required property MovedModel messages
    required property bool fileStands
    required property HistoryModel history

    objectName: "scan" + index
    width: parent ? parent.width : 0
    implicitHeight: column.height

    onPressed: root.history.setOpen(root.index, !root.expanded)
    onOpened: root.history.setOpen(root.index, true)
    onClosed: root.history.setOpen(root.index, false)
    onDeletePressed: root.remove()

    onExpandedChanged: root.showDetails()
    Component.onCompleted: root.showDetails()

    // Made only while the row is open.
    function showDetails(): void {
        if (root.expanded)
            details.setSource("ScanDetails.qml", { "row": root });
        else
            details.source = "";
    }

    // The row keeps the keyboard, and hands it on as it goes.
    function remove(): void {
        root.forceActiveFocus();
        root.history.deleteScan(root.index);
    }

    Column {
        id: column

        width: parent.width

        Rectangle {
            visible: root.index > 0
            width: parent.width
            height: 1
            color: Theme.line
        }
        Item {
            width: parent.width
            height: 58

            Rectangle {
                anchors.fill: parent
                anchors.margins: 4
                radius: Theme.rowRadius + 2
                color: tap.pressed ? Theme.press : hover.hovered ? Theme.hover : "transparent"
                border.width: root.hasKeyboard ? 2 : 0
                border.color: Theme.lavenderInk
            }
            HoverHandler {
                id: hover
            }
            TapHandler {
                id: tap

                onTapped: {
                    root.forceActiveFocus();
                    root.pressed();
                }
            }
            TapHandler {
                acceptedButtons: Qt.RightButton
                onTapped: point => root.menuAsked(root.mapFromItem(null, point.scenePosition))
            }
            RowLayout {
                anchors.fill: parent
                anchors.leftMargin: 20
                anchors.rightMargin: 14
                spacing: Theme.space3

                ColumnLayout {
                    Layout.fillWidth: true
                    spacing: 2

                    Txt {
                        text: root.date
                        weight: Font.DemiBold
                        Accessible.ignored: true
                    }
                    Txt {
                        Layout.fillWidth: true
                        text: root.place
                        size: Theme.smallSize
                        color: Theme.ink3
                        elide: Text.ElideMiddle
                        horizontalAlignment: Text.AlignLeft
                        Accessible.ignored: true
                    }
                }
                Tag {
                    text: root.moved
                    Accessible.ignored: true
                }
                Txt {
                    text: root.sorted
                    size: Theme.rowSize
                    weight: Font.Medium
                    color: Theme.ink2
                    Accessible.ignored: true
                }
                Row {
                    spacing: 0

                    GhostButton {
                        objectName: "deleteScan" + root.index
                        symbol: root.history.deleteSymbol
                        help: root.history.deleteLabel
                        tint: Theme.ink3
                        focusPolicy: root.controlFocus
                        onClicked: root.remove()
                    }
                    Item {
                        width: 32
                        height: 32

                        Symbol {
                            anchors.centerIn: parent
                            symbol: root.chevron
                            size: 16
                        }
                    }
                }
            }
        }
        Loader {
            id: details

            visible: root.expanded
            x: 20
            width: parent.width - 40
        }
    }

    Accessible.name: root.date + ", " + root.place
    Accessible.description: root.description
    Accessible.onPressAction: root.pressed()
}
