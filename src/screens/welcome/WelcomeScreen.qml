import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

HeroScreen {
    id: root

    required property WelcomeModel model
    // All of it fits into the smallest window, whatever the banner has to say.
    readonly property int gap: !banner.visible ? Theme.space7
                             : height < 700 ? Theme.space4 : Theme.space6

    objectName: "welcomeScreen"
    symbol: model.symbol
    title: model.title
    text: model.text

    Row {
        Layout.alignment: Qt.AlignHCenter
        Layout.topMargin: Theme.space5
        spacing: Theme.space2

        Repeater {
            model: root.model.badges

            Badge {
                required property string lead
                required property int index

                symbol: lead
                tint: [Theme.lavender, Theme.blue, Theme.green][index % 3]
                ink: [Theme.lavenderInk, Theme.blueInk, Theme.greenInk][index % 3]
            }
        }
    }
    ResumeBanner {
        id: banner

        objectName: "resumeBanner"
        Layout.alignment: Qt.AlignHCenter
        Layout.topMargin: Math.min(root.gap, Theme.space5)
        Layout.preferredWidth: 760
        model: root.model.resume
        onForgotten: start.forceActiveFocus()
    }
    OrbButton {
        id: start

        objectName: "start"
        Layout.alignment: Qt.AlignHCenter
        Layout.topMargin: root.gap
        text: root.model.startLabel
        focus: true
        onClicked: root.model.start()
    }
    Row {
        Layout.alignment: Qt.AlignHCenter
        Layout.topMargin: Math.min(root.gap, Theme.space6)
        spacing: Theme.space2

        Repeater {
            model: root.model.links
            onItemAdded: (index, item) =>
                (item as HomeLink).clicked.connect(() => root.model.follow(index))

            HomeLink {}
        }
    }
}
