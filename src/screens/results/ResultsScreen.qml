import QtQuick
import QtQuick.Layouts
import QtQuick.Window
import Brindlet.Screens

FocusScope {
    id: root

    required property ResultsModel model

    readonly property bool settled: page.settled && bars.settled && !lost.running
                                    && !hold.soon.running
    readonly property Item focusItem: Window.activeFocusItem
    // What had the keyboard is gone, and Tab would begin all over.
    readonly property bool focusLost: focusItem === root
                                      || (focusItem !== null && !focusItem.visible)
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
            root.pageFocus = root.listOf(root.focusItem) ?? root.focusItem;
    }
    onFocusLostChanged: lost.restart()

    function adopt(card: CategoryCard): void {
        card.toggleAsked.connect(() => hold.card = card);
        card.sectionChanged.connect(() => root.noticeSection(card));
        card.bars = bars;
    }

    // Where the keyboard is, if that is a row.
    function listOf(item: Item): RowList {
        return (item as MessageRow)?.list ?? (item as MovedListRow)?.list ?? null;
    }

    function find(): void {
        if (root.openCard === null || moved.hasKeyboard)
            moved.find();
        else
            root.openCard.section.find();
    }

    function noticeSection(card: CategoryCard): void {
        if (card.section !== null)
            root.openCard = card;
        else if (root.openCard === card)
            root.openCard = null;
    }

    // From the bars, which stand behind the open list or else behind the last category.
    function leaveBars(forward: bool): void {
        if (forward)
            (root.openCard !== null ? root.openCard.section.tabStop : lastStop).goOn();
        else if (root.openCard !== null)
            root.openCard.section.list.forceActiveFocus(Qt.BacktabFocusReason);
        else
            lastStop.goBack();
    }

    // In the midst of the change that took it, the focus cannot be given back.
    Timer {
        id: lost

        interval: 0
        onTriggered: {
            if (!root.focusLost || root.pageFocus === null)
                return;
            if (moveBar.holds(root.pageFocus))
                moveBar.takeKeyboard();
            else if (root.pageFocus.visible)
                root.pageFocus.forceActiveFocus();
        }
    }
    Shortcut {
        sequences: ["Ctrl+Z"]
        enabled: root.model.undo.shown
        onActivated: root.model.undo.press()
    }
    Shortcut {
        sequences: ["Ctrl+F"]
        enabled: root.openCard !== null || moved.opened
        onActivated: root.find()
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
            GhostButton {
                objectName: "automatic"
                symbol: root.model.automaticSymbol
                text: root.model.automaticLabel
                onClicked: root.model.openAutomatic()
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
        MoveBar {
            id: moveBar

            Layout.fillWidth: true
            model: root.model.move
        }
        ResultsBanners {
            Layout.fillWidth: true
            model: root.model
            empty: categories.count === 0
        }
        Repeater {
            id: categories

            model: root.model.categories
            onItemAdded: (index, item) => root.adopt(item as CategoryCard)

            CategoryCard {
                Layout.fillWidth: true
            }
        }
        TabStop {
            id: lastStop

            enabled: bars.shown && root.openCard === null
            onReached: forward => bars.enter(forward)
        }
        MovedSection {
            id: moved

            Layout.fillWidth: true
            model: root.model.moved
            onToggled: hold.card = moved
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
        onPassed: forward => root.leaveBars(forward)
    }
}
