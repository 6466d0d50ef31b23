import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

FocusScope {
    id: root

    required property ScanningModel model

    objectName: "scanningScreen"
    focus: true

    Glow {
        anchors.horizontalCenter: parent.horizontalCenter
        y: column.y + 116 - height / 2
        size: 760
        tint: Theme.wash(Theme.blue, 0.7 * Theme.glowStrength)
    }
    ColumnLayout {
        id: column

        anchors.centerIn: parent
        spacing: 0

        Ring {
            objectName: "ring"
            Layout.alignment: Qt.AlignHCenter
            implicitWidth: 232
            implicitHeight: 232
            thickness: 12
            track: Theme.track
            from: Theme.lavender
            to: Theme.blue
            value: root.model.share

            Behavior on value {
                NumberAnimation {
                    duration: Theme.slow
                    easing.type: Easing.OutQuad
                }
            }

            Accessible.role: Accessible.ProgressBar
            Accessible.name: root.model.ringName
            Accessible.description: root.model.percent

            ColumnLayout {
                anchors.centerIn: parent
                spacing: 2

                Txt {
                    objectName: "percent"
                    Layout.alignment: Qt.AlignHCenter
                    text: root.model.percent
                    size: 46
                    weight: Font.Bold
                    font.letterSpacing: -1.4
                }
                Txt {
                    Layout.alignment: Qt.AlignHCenter
                    text: root.model.count
                    size: Theme.rowSize
                    color: Theme.ink2
                }
            }
        }
        Txt {
            objectName: "stage"
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: Theme.space5 + Theme.space1
            Layout.maximumWidth: root.width - 2 * Theme.space6
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.WordWrap
            text: root.model.stage
            size: Theme.headSize
            weight: Font.DemiBold
        }
        Txt {
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: Theme.space1
            Layout.maximumWidth: root.width - 2 * Theme.space6
            elide: Text.ElideMiddle
            text: root.model.place
            size: Theme.rowSize
            color: Theme.ink2
        }
        Row {
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: Theme.space6

            Repeater {
                model: root.model.stats

                Row {
                    id: cell

                    required property int index
                    required property string lead
                    required property string text

                    Rectangle {
                        anchors.verticalCenter: parent.verticalCenter
                        visible: cell.index > 0
                        width: 1
                        height: 30
                        color: Theme.line
                    }
                    Stat {
                        leftPadding: Theme.space5
                        rightPadding: Theme.space5
                        value: cell.lead
                        label: cell.text
                    }
                }
            }
        }
        ToggleSwitch {
            objectName: "keepScanning"
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: Theme.space5
            visible: root.model.pausedOnBattery
            text: root.model.keepScanningLabel
            on: root.model.keepsScanning
            onAsked: on => root.model.setKeepsScanning(on)
        }
        GhostButton {
            objectName: "stop"
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: Theme.space6
            text: root.model.stopLabel
            boxed: true
            tint: Theme.ink
            implicitWidth: 96
            focus: true
            onClicked: root.model.stop()
        }
    }
}
