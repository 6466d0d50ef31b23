import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

HeroScreen {
    id: root

    required property UnsupportedModel model

    objectName: "unsupportedScreen"
    symbol: model.symbol
    title: model.title
    text: model.text
    textWidth: 600
    tint: Theme.orange
    ink: Theme.orangeInk

    PrimaryButton {
        objectName: "openSettings"
        Layout.alignment: Qt.AlignHCenter
        Layout.topMargin: Theme.space6
        text: root.model.openSettingsLabel
        focus: true
        onClicked: root.model.openSettings()
    }
}
