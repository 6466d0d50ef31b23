import QtQuick
import QtQuick.Layouts
import Brindlet.Screens

// One category; opens to its messages.
FoldingCard {
    id: root

    required property int index
    required property string label
    required property string count
    required property string badge
    required property int badgeTone
    required property string badgeHelp
    required property string tickSymbol
    required property string tickHelp
    required property string generalHelp
    required property string reviewed
    required property string reviewedHelp
    required property string description
    required property bool expanded
    required property string chevron
    required property ResultsModel results
    // The card opens once it knows them.
    property ReviewBars bars: null
    readonly property MessageSection section: loader.item as MessageSection
    signal toggleAsked

    implicitHeight: column.implicitHeight
    opened: expanded && bars !== null

    onOpenedChanged: {
        if (root.opened)
            loader.setSource("MessageSection.qml", {
                "messages": root.results.messages,
                "name": root.results.messagesName,
                "bars": root.bars
            });
        else
            loader.source = "";
    }

    function focusHeader(): void {
        header.focusOpener();
    }

    ColumnLayout {
        id: column

        width: parent.width
        spacing: 0

        CategoryHeader {
            id: header

            Layout.fillWidth: true
            index: root.index
            label: root.label
            count: root.count
            badge: root.badge
            badgeTone: root.badgeTone
            badgeHelp: root.badgeHelp
            tickSymbol: root.tickSymbol
            tickHelp: root.tickHelp
            generalHelp: root.generalHelp
            reviewed: root.reviewed
            reviewedHelp: root.reviewedHelp
            description: root.description
            chevron: root.chevron
            expanded: root.expanded
            onTickAsked: root.results.tickCategory(root.index)
            onToggleAsked: {
                root.toggleAsked();
                root.results.toggleCategory(root.index);
            }
            onJumpAsked: root.results.jumpToReviewed()
        }
        Loader {
            id: loader

            Layout.fillWidth: true
            visible: status === Loader.Ready
        }
    }
}
