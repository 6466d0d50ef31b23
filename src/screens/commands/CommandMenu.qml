import QtQuick
import QtQuick.Templates as T
import Brindlet.Screens

// What a menu bar would hold.
ContextMenu {
    id: root

    required property CommandsModel model
    signal aboutAsked

    objectName: "commandMenu"
    implicitWidth: 232
    title: root.model.menuName

    CommandRow {
        objectName: "about"
        text: root.model.aboutLabel
        onTriggered: root.aboutAsked()
    }
    CommandRow {
        objectName: "checkForUpdates"
        text: root.model.checkLabel
        enabled: root.model.canCheck
        onTriggered: root.model.check()
    }
    T.MenuSeparator {
        implicitHeight: 11
        contentItem: Item {
            Rectangle {
                x: 10
                y: 5
                width: parent.width - 20
                height: 1
                color: Theme.line
            }
        }

        Accessible.role: Accessible.Separator
    }
    CommandRow {
        objectName: "quitBrindlet"
        text: root.model.quitLabel
        keys: root.model.quitKeys
        onTriggered: root.model.quit()
    }
}
