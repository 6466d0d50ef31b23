import QtQuick
import QtQuick.Window
import Brindlet.Screens

// The one window: the session's screen, and nothing else.
Window {
    id: root

    required property AppModel app
    required property CommandsModel commands
    // False while anything moves: one screen comes in after another, or something within one.
    readonly property bool settled: stage.status === Loader.Ready && !entrance.running
                                    && sheet.still && about.settled && tip.settled
                                    && (stage.item as ResultsScreen)?.settled !== false

    width: 1080
    height: 740
    minimumWidth: 980
    minimumHeight: 640
    visible: true
    title: app.title
    color: Theme.ground

    onActiveChanged: {
        if (root.active)
            root.app.lookAgain();
    }

    Binding {
        target: Theme
        property: "dark"
        value: root.app.dark
    }
    Binding {
        target: Theme
        property: "still"
        value: root.app.still
    }
    InputWatch {
        id: input

        window: root
        onUsed: Help.dismiss()
    }
    Binding {
        target: Theme
        property: "keyboardLeads"
        value: input.keyboardLeads
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
        // Where no row has a menu of its own.
        Keys.onMenuPressed: commandButton.open()
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
    CommandButton {
        id: commandButton

        anchors.top: parent.top
        anchors.right: parent.right
        anchors.topMargin: Theme.space2
        anchors.rightMargin: 9
        model: root.commands
        home: stage
        onAboutAsked: about.wanted = true
    }
    Shortcut {
        sequence: "F10"
        onActivated: commandButton.open()
    }
    AboutSheet {
        id: about

        model: root.commands
        home: stage
    }
    GmailAskSheet {
        id: sheet

        model: root.app.gmailAsk
        home: stage
    }
    HelpTip {
        id: tip
    }
    Connections {
        target: root.app

        function onScreenChanged(): void {
            root.showScreen();
        }
    }
    Component.onCompleted: root.showScreen()

    function showScreen(): void {
        switch (root.app.screen) {
        case AppModel.Welcome:
            stage.setSource("WelcomeScreen.qml", { "model": root.app.welcome });
            break;
        case AppModel.Permission:
            stage.setSource("PermissionScreen.qml", { "model": root.app.permission });
            break;
        case AppModel.Pick:
            stage.setSource("PickScreen.qml", { "model": root.app.pick });
            break;
        case AppModel.Scanning:
            stage.setSource("ScanningScreen.qml", { "model": root.app.scanning });
            break;
        case AppModel.Results:
            stage.setSource("ResultsScreen.qml", { "model": root.app.results });
            break;
        case AppModel.Automatic:
            stage.setSource("AutomaticScreen.qml", { "model": root.app.automatic });
            break;
        case AppModel.History:
            stage.setSource("HistoryScreen.qml", { "model": root.app.history });
            break;
        case AppModel.Rules:
            stage.setSource("RulesScreen.qml", { "model": root.app.rules });
            break;
        case AppModel.Unsupported:
            stage.setSource("UnsupportedScreen.qml", { "model": root.app.unsupported });
            break;
        }
    }
}
