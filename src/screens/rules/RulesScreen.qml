import QtQuick
import QtQuick.Layouts
import QtQuick.Window
import Brindlet.Screens

FocusScope {
    id: root

    required property RulesModel model
    readonly property Item focusItem: Window.activeFocusItem

    objectName: "rulesScreen"
    focus: true

    Keys.onEscapePressed: root.model.back()
    onFocusItemChanged: root.reveal()

    // Scrolls to what the keyboard came to above the list; the list sees to its own rows. Not for
    // the mouse: a button that moves away under the pointer is not clicked.
    function reveal(): void {
        if (!Theme.keyboardLeads || !root.isAbove(root.focusItem))
            return;
        const top = root.focusItem.mapToItem(head, 0, 0).y - Theme.space5;
        const least = top + root.focusItem.height + 2 * Theme.space5 - list.height;
        list.contentY += head.y + Math.max(0, Math.min(Math.max(-head.y, least), top));
    }

    function isAbove(item: Item): bool {
        for (let up = item; up !== null; up = up.parent) {
            if (up === head)
                return true;
        }
        return false;
    }

    // Rolls with the rows as a header of theirs would, but stands outside of the list, so that Tab
    // passes through it first.
    Item {
        id: head

        width: root.width
        height: page.y + page.height
        y: list.originY - list.topMargin - list.contentY
        z: 1

        ColumnLayout {
            id: page

            anchors.horizontalCenter: parent.horizontalCenter
            y: Theme.space5
            width: list.rowWidth
            spacing: Theme.space3

            RowLayout {
                Layout.fillWidth: true

                BackButton {
                    objectName: "back"
                    help: root.model.backName
                    onClicked: root.model.back()
                }
                Item {
                    Layout.fillWidth: true
                }
                GhostButton {
                    objectName: "forgetAll"
                    text: root.model.forgetAllLabel
                    enabled: root.model.canForgetAll
                    boxed: root.model.forgettingAll
                    tint: root.model.forgettingAll ? Theme.orangeInk : Theme.ink2
                    onClicked: root.model.forgetAll()
                }
            }
            ColumnLayout {
                Layout.fillWidth: true
                Layout.bottomMargin: Theme.space1
                spacing: 6

                PageTitle {
                    text: root.model.title
                }
                Txt {
                    objectName: "counts"
                    text: root.model.counts
                    size: Theme.rowSize
                    color: Theme.ink2
                }
            }
            RuleForm {
                Layout.fillWidth: true
                model: root.model
            }
            Txt {
                Layout.leftMargin: Theme.space1
                text: root.model.note
                size: Theme.smallSize
                color: Theme.ink3
            }
            SectionLabel {
                objectName: "learnedLabel"
                Layout.fillWidth: true
                Layout.topMargin: Theme.space3
                visible: learned.visible
                text: root.model.learned.label
                note: root.model.learned.note
            }
            Card {
                id: learned

                Layout.fillWidth: true
                implicitHeight: flipped.implicitHeight
                visible: root.model.learned.count > 0

                ColumnLayout {
                    id: flipped

                    width: parent.width
                    spacing: 0

                    Repeater {
                        model: root.model.learned

                        CalibrationRow {
                            Layout.fillWidth: true
                        }
                    }
                }
            }
            Hero {
                Layout.alignment: Qt.AlignHCenter
                Layout.topMargin: Theme.space7
                visible: nothing.visible
                symbol: "wand.and.stars"
            }
            Txt {
                id: nothing

                objectName: "nothing"
                Layout.fillWidth: true
                Layout.topMargin: Theme.space3
                visible: text !== ""
                horizontalAlignment: Text.AlignHCenter
                text: root.model.nothing
                size: 15
                color: Theme.ink2
                wrapMode: Text.WordWrap
                lineHeight: 1.35
            }
        }
    }
    RuleList {
        id: list

        // How far the page is rolled, and what stood above the rows then.
        property real rolled: 0
        property real lastMargin: 0

        objectName: "rules"
        anchors.fill: parent
        topMargin: head.height
        bottomMargin: Theme.space6
        rules: root.model.rules
        rowWidth: Math.min(root.width - 2 * Theme.space6, Theme.measure)

        // What grows above the rows moves them, and not itself.
        onTopMarginChanged: {
            if (list.rolled <= list.lastMargin)
                list.contentY = list.originY - list.topMargin + list.rolled;
            list.lastMargin = list.topMargin;
        }
        onContentYChanged: {
            if (list.topMargin === list.lastMargin)
                list.rolled = list.contentY - list.originY + list.topMargin;
        }
    }
}
