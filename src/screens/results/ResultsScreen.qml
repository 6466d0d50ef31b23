import QtQuick
import QtQuick.Layouts
import QtQuick.Window
import Brindlet.Screens

FocusScope {
    id: root

    required property ResultsModel model

    readonly property bool settled: page.settled && bars.settled
    readonly property Item focusItem: Window.activeFocusItem
    property CategoryCard openCard: null
    // Where the keyboard was last, beside the bars.
    property Item pageFocus: null

    objectName: "resultsScreen"
    focus: true

    Keys.onEscapePressed: {
        if (root.model.messages.filter !== "")
            root.model.messages.filter = "";
        else
            root.model.back();
    }
    onFocusItemChanged: {
        if (page.holds(root.focusItem) && !(root.focusItem instanceof TabStop))
            root.pageFocus = root.focusItem instanceof MessageRow ? root.focusItem.list
                                                                  : root.focusItem;
        else if (root.focusItem === root)
            Qt.callLater(root.catchFocus);
    }

    // What had the keyboard is gone, and Tab would begin all over.
    function catchFocus(): void {
        if (root.focusItem === root)
            root.returnFocus(Qt.OtherFocusReason);
    }

    function returnFocus(reason: int): void {
        if (root.pageFocus !== null && root.pageFocus.visible)
            root.pageFocus.forceActiveFocus(reason);
    }

    function tabStop(): TabStop {
        return root.openCard !== null ? root.openCard.section.tabStop : lastStop;
    }

    Shortcut {
        sequences: [StandardKey.Undo]
        enabled: root.model.undo.shown
        onActivated: root.model.undo.press()
    }
    Shortcut {
        sequences: [StandardKey.Find]
        enabled: root.openCard !== null
        onActivated: root.openCard.section.find()
    }
    Connections {
        target: root.model

        function onJumped(row: int): void {
            const card = categories.itemAt(row) as CategoryCard;
            page.reveal(card);
            card.focusHeader();
        }
    }
    ScrollPage {
        id: page

        objectName: "resultsPage"
        anchors.fill: parent
        covered: bars.covered

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
            GhostButton {
                objectName: "rules"
                symbol: root.model.rulesSymbol
                text: root.model.rulesLabel
                onClicked: root.model.openRules()
            }
            GhostButton {
                objectName: "history"
                symbol: root.model.historySymbol
                text: root.model.historyLabel
                onClicked: root.model.openHistory()
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
        ResultsBanners {
            Layout.fillWidth: true
            model: root.model
            empty: categories.count === 0
        }
        Repeater {
            id: categories

            model: root.model.categories

            CategoryCard {
                id: card

                Layout.fillWidth: true
                detour: bars.shown
                onDetourReached: forward => bars.enter(forward)
                onToggleAsked: hold.card = card
                onSectionChanged: {
                    if (card.section !== null)
                        root.openCard = card;
                    else if (root.openCard === card)
                        root.openCard = null;
                }
            }
        }
        TabStop {
            id: lastStop

            enabled: bars.shown && root.openCard === null
            onReached: forward => bars.enter(forward)
        }
    }
    HeldPlace {
        id: hold

        page: page
    }
    ReviewBars {
        id: bars

        anchors.horizontalCenter: parent.horizontalCenter
        y: root.height - height - Theme.space5
        width: Math.min(root.width - 2 * Theme.space6, Theme.measure)
        undo: root.model.undo
        offer: root.model.offer
        onPassed: root.tabStop().goOn()
        onReturned: root.returnFocus(Qt.BacktabFocusReason)
    }
}
