import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import QtQuick.Window
import Brindlet.Screens

FocusScope {
    id: root

    required property ResultsModel model

    readonly property Item focusItem: Window.activeFocusItem

    objectName: "resultsScreen"
    focus: true

    Keys.onEscapePressed: root.model.back()
    onFocusItemChanged: root.reveal()

    // Scrolls no further than needed to show what the keyboard came to. Not for the mouse: a button
    // that moves away under the pointer is not clicked.
    function reveal(): void {
        if (root.focusItem !== null && Theme.keyboardLeads)
            root.show(root.focusItem.mapToItem(page, 0, 0).y, root.focusItem.height);
    }

    function show(top: real, height: real): void {
        const least = top + height + Theme.space5 - flick.height;
        flick.contentY = Math.max(0, Math.min(Math.max(flick.contentY, least), top - Theme.space5));
    }

    Flickable {
        id: flick

        objectName: "resultsPage"
        anchors.fill: parent
        contentHeight: page.height
        boundsBehavior: Flickable.StopAtBounds

        T.ScrollBar.vertical: SectionScrollBar {}

        Item {
            id: page

            width: flick.width
            height: body.y + body.height + Theme.space6

            ColumnLayout {
                id: body

                anchors.horizontalCenter: parent.horizontalCenter
                y: Theme.space5
                width: Math.min(root.width - 2 * Theme.space6, Theme.measure)
                spacing: Theme.space3

                RowLayout {
                    Layout.fillWidth: true
                    spacing: Theme.space1

                    BackButton {
                        objectName: "back"
                        help: root.model.backName
                        onClicked: root.model.back()
                    }
                    Item {
                        Layout.fillWidth: true
                    }
                    GhostButton {
                        objectName: "scanAnother"
                        text: root.model.scanAnotherLabel
                        onClicked: root.model.scanAnother()
                    }
                }
                ColumnLayout {
                    Layout.fillWidth: true
                    Layout.bottomMargin: Theme.space1
                    spacing: 6

                    PageTitle {
                        objectName: "resultsTitle"
                        text: root.model.title
                    }
                    Txt {
                        objectName: "summary"
                        Layout.fillWidth: true
                        text: root.model.summary
                        size: Theme.rowSize
                        color: Theme.ink2
                        wrapMode: Text.WordWrap
                        lineHeight: 1.25
                    }
                }
                Banner {
                    objectName: "stoppedBar"
                    Layout.fillWidth: true
                    visible: root.model.stopped
                    symbol: root.model.stoppedSymbol
                    title: root.model.stoppedTitle
                    text: root.model.stoppedText

                    GhostButton {
                        objectName: "quit"
                        text: root.model.quitLabel
                        boxed: true
                        tint: Theme.orangeInk
                        implicitHeight: 36
                        onClicked: root.model.quit()
                    }
                }
                Banner {
                    objectName: "nothingBar"
                    Layout.fillWidth: true
                    visible: root.model.nothing !== "" && categories.count > 0
                    symbol: "checkmark.circle"
                    text: root.model.nothing
                    tint: Theme.green
                    ink: Theme.greenInk
                }
                EmptyResult {
                    Layout.fillWidth: true
                    visible: root.model.nothing !== "" && categories.count === 0
                    text: root.model.nothing
                }
                Repeater {
                    id: categories

                    model: root.model.categories

                    CategoryCard {
                        Layout.fillWidth: true
                    }
                }
            }
        }
    }
}
