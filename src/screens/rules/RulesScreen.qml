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
        if (!Theme.keyboardLeads || root.focusItem === null || !head.isAncestor(root.focusItem))
            return;
        const top = root.focusItem.mapToItem(head, 0, 0).y - Theme.space5;
        const bottom = top + root.focusItem.height + 2 * Theme.space5 - list.height;
        const shown = list.contentY - list.originY;
        list.contentY = list.originY + Math.max(0, Math.min(Math.max(shown, bottom), top));
    }

    // Rolls with the list as its header does, but stands outside of it, so that Tab passes through
    // it before the rows.
    Item {
        id: head

        function isAncestor(item: Item): bool {
            for (let it = item; it !== null; it = it.parent)
                if (it === head)
                    return true;
            return false;
        }

        width: root.width
        height: page.y + page.height
        y: list.headerItem ? list.headerItem.y - list.contentY : 0
        z: 1

        ColumnLayout {
            id: page

            x: list.rowX
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
                            rows: root.model.learned
                        }
                    }
                }
            }
            Txt {
                objectName: "nothing"
                Layout.fillWidth: true
                Layout.topMargin: Theme.space7
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

        objectName: "rules"
        anchors.fill: parent
        rules: root.model.rules
        rowWidth: Math.min(root.width - 2 * Theme.space6, Theme.measure)

        header: Item {
            width: list.width
            height: head.height
        }
        footer: Item {
            width: list.width
            height: Theme.space6
        }
    }
}
