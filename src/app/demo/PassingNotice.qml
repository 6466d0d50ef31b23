import QtQuick
import Brindlet.Screens

// What the demo did instead; stands at the foot of the window for a while.
Rectangle {
    id: root

    property alias text: words.text
    readonly property int patience: 4000

    objectName: "passingNotice"
    // Above the program's own help, whatever stands.
    z: 1000003
    anchors.horizontalCenter: parent ? parent.horizontalCenter : undefined
    anchors.bottom: parent ? parent.bottom : undefined
    anchors.bottomMargin: Theme.space4
    width: row.width + 2 * Theme.space4
    height: row.height + 2 * Theme.space2
    radius: height / 2
    color: Theme.raised
    border.width: 1
    border.color: Theme.wash(Theme.blue, 0.5)
    visible: false

    function show(text: string): void {
        words.text = text;
        root.visible = true;
        away.restart();
    }

    function clear(): void {
        away.stop();
        root.visible = false;
    }

    Shadow {
        radius: root.radius
        blur: 16
    }
    Row {
        id: row

        anchors.centerIn: parent
        spacing: Theme.space2

        Txt {
            anchors.verticalCenter: parent.verticalCenter
            text: "DEMO"
            size: Theme.microSize
            weight: Font.DemiBold
            font.letterSpacing: 0.6
            color: Theme.blueInk
            Accessible.ignored: true
        }
        Txt {
            id: words

            anchors.verticalCenter: parent.verticalCenter
            width: Math.min(implicitWidth, root.parent ? root.parent.width - 160 : implicitWidth)
            size: Theme.smallSize
            elide: Text.ElideMiddle
            Accessible.ignored: true
        }
    }
    Timer {
        id: away

        interval: root.patience
        onTriggered: root.clear()
    }

    Accessible.role: Accessible.AlertMessage
    Accessible.name: words.text
}
