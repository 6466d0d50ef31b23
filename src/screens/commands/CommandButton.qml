import QtQuick
import Brindlet.Screens

// Opens the menu of the commands, in the corner that the screens leave free at every size of the
// window. Menu and sheet are made when they are first wanted: the first picture does not wait.
GhostButton {
    id: root

    required property CommandsModel model
    // Gets the keyboard when what had it has gone meanwhile.
    required property Item home
    readonly property bool settled: about === null || about.settled
    property CommandMenu menu: null
    property AboutSheet about: null
    property Item before: null

    objectName: "commands"
    implicitWidth: 28
    implicitHeight: 28
    help: model.menuName
    // A menu bar is no stop of Tab either: the keyboard comes by a key of its own.
    focusPolicy: Qt.NoFocus
    onClicked: {
        if (root.menu !== null && root.menu.visible)
            root.menu.close();
        else
            root.open();
    }

    // By keyboard, with the first command chosen.
    function openFirst(): void {
        root.open();
        root.menu.currentIndex = 0;
    }

    function open(): void {
        if (root.menu === null) {
            root.menu = root.make("CommandMenu.qml", { "model": root.model }) as CommandMenu;
            // After it has closed and given the keyboard back.
            root.menu.aboutAsked.connect(() => Qt.callLater(root.tellAbout));
            root.menu.closed.connect(root.giveBack);
        }
        root.before = root.Window.activeFocusItem;
        root.menu.showAt(root, Qt.point(root.width - root.menu.width, root.height + 4));
    }

    function tellAbout(): void {
        if (root.about === null)
            root.about = root.make("AboutSheet.qml", { "model": root.model, "home": root.home })
                    as AboutSheet;
        root.about.wanted = true;
    }

    function make(file: string, properties: var): QtObject {
        return Qt.createComponent(file).createObject(root, properties);
    }

    // The toolkit would leave the keyboard nowhere.
    function giveBack(): void {
        (root.before !== null && root.before.visible ? root.before : root.home)
            .forceActiveFocus(Qt.PopupFocusReason);
    }

    contentItem: Item {
        Column {
            anchors.centerIn: parent
            spacing: 3

            Repeater {
                model: 3

                Rectangle {
                    width: 14
                    height: 2
                    radius: 1
                    color: Theme.ink2
                }
            }
        }
    }

    Accessible.role: Accessible.ButtonMenu
}
