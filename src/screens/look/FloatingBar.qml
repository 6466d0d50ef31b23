import QtQuick

// A raised bar over the page that slides in when it is first wanted, and is gone at once when not.
Rectangle {
    id: root

    required property bool shown
    readonly property bool settled: !entrance.running

    radius: Theme.barRadius
    color: Theme.raised
    border.width: 1
    border.color: Theme.line
    visible: shown

    onShownChanged: {
        if (root.shown)
            entrance.restart();
    }

    transform: Translate {
        id: offset
    }
    ParallelAnimation {
        id: entrance

        NumberAnimation {
            target: offset
            property: "y"
            from: 40
            to: 0
            duration: Theme.steady
            easing.type: Easing.OutCubic
        }
        NumberAnimation {
            target: root
            property: "opacity"
            from: 0
            to: 1
            duration: Theme.steady
            easing.type: Easing.OutCubic
        }
    }
    Shadow {
        radius: root.radius
        blur: 28
    }
    // What lies beneath is not clicked or pointed at through the gaps, nor scrolled by accident.
    MouseArea {
        anchors.fill: parent
        hoverEnabled: true
        onWheel: wheel => wheel.accepted = true
    }
}
