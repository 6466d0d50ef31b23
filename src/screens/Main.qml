import QtQuick
import QtQuick.Window
import Brindlet.Screens

// The one window: the session's screen, and nothing else.
Window {
    id: root

    required property AppModel app
    // False while one screen comes in after another.
    readonly property bool settled: stage.status === Loader.Ready && !entrance.running

    width: 1080
    height: 740
    minimumWidth: 980
    minimumHeight: 640
    visible: true
    title: app.title
    color: Theme.ground

    Binding {
        target: Theme
        property: "dark"
        value: root.app.dark
    }
    Rectangle {
        anchors.fill: parent
        gradient: Gradient {
            GradientStop {
                position: 0
                color: Theme.groundHigh
            }
            GradientStop {
                position: 1
                color: Theme.ground
            }
        }
    }
    Loader {
        id: stage

        // The first screen stands at once.
        property bool first: true

        width: parent.width
        height: parent.height
        focus: true
        sourceComponent: root.app.screen === AppModel.Permission ? permission
                       : root.app.screen === AppModel.Pick ? pick
                       : root.app.screen === AppModel.Scanning ? scanning
                       : root.app.screen === AppModel.Results ? results : welcome
        onLoaded: {
            stage.forceActiveFocus();
            if (!first)
                entrance.restart();
            first = false;
        }

        ParallelAnimation {
            id: entrance

            NumberAnimation {
                target: stage
                property: "opacity"
                from: 0
                to: 1
                duration: Theme.steady
                easing.type: Easing.OutCubic
            }
            NumberAnimation {
                target: stage
                property: "y"
                from: 14
                to: 0
                duration: Theme.steady
                easing.type: Easing.OutCubic
            }
        }
    }

    Component {
        id: welcome

        WelcomeScreen {
            model: root.app.welcome
        }
    }
    Component {
        id: permission

        PermissionScreen {
            model: root.app.permission
        }
    }
    Component {
        id: pick

        PickScreen {
            model: root.app.pick
        }
    }
    Component {
        id: scanning

        ScanningScreen {
            model: root.app.scanning
        }
    }
    Component {
        id: results

        ResultsScreen {
            model: root.app.results
        }
    }
}
