import QtQuick
import Brindlet.Screens

// Opens the menu of the commands, in the corner that the screens leave free at every size of the
// window.
GhostButton {
    id: root

    required property CommandsModel model
    // Gets the keyboard when what had it has gone meanwhile.
    required property Item home
    property Item before: null
    signal aboutAsked

    objectName: "commands"
    implicitWidth: 28
    implicitHeight: 28
    help: model.menuName
    // A menu bar is no stop of Tab either: the keyboard comes by a key of its own.
    focusPolicy: Qt.NoFocus
    onClicked: root.toggle()

    // By keyboard, with the first command chosen.
    function open(): void {
        root.toggle();
        if (menu.visible)
            menu.currentIndex = 0;
    }

    function toggle(): void {
        if (menu.visible) {
            menu.close();
            return;
        }
        root.before = root.Window.activeFocusItem;
        root.showMenu();
    }

    // By its base type, without which the lint falls over the call.
    function showMenu(): void {
        menu.popup(root, root.width - menu.width, root.height + 4);
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

    CommandMenu {
        id: menu

        model: root.model
        // After it has closed and given the keyboard back.
        onAboutAsked: Qt.callLater(root.aboutAsked)
        // The toolkit would leave the keyboard nowhere.
        onClosed: (root.before !== null && root.before.visible ? root.before : root.home)
                  .forceActiveFocus(Qt.PopupFocusReason)
    }

    Accessible.role: Accessible.ButtonMenu
}
