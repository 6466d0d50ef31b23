import QtQuick

// Shows the help text by its control, inside the parent. Says nothing to a screen reader, which
// has the same words as the description of the control.
Rectangle {
    id: root

    readonly property bool shown: Help.shown
    readonly property string text: Help.text
    readonly property bool settled: opacity === (shown ? 1 : 0)

    objectName: "helpTip"
    // Above menus, which the toolkit shows at 1000001.
    z: 1000002
    width: words.width + 20
    height: words.height + 14
    radius: Theme.rowRadius
    color: Theme.raised
    border.width: 1
    border.color: Theme.line
    opacity: shown ? 1 : 0
    visible: opacity > 0

    onShownChanged: root.place()
    onHeightChanged: root.place()
    onWidthChanged: root.place()

    function place(): void {
        if (!root.shown || Help.control === null)
            return;
        const spot = Help.control.mapToItem(root.parent, 0, 0);
        const below = spot.y + Help.control.height + 4;
        const middle = spot.x + (Help.control.width - root.width) / 2;
        root.x = Math.round(Math.max(8, Math.min(middle, root.parent.width - root.width - 8)));
        root.y = Math.round(below + root.height + 2 <= root.parent.height
                            ? below : spot.y - root.height - 4);
    }

    Behavior on opacity {
        NumberAnimation {
            duration: Theme.quick
        }
    }
    Shadow {
        radius: root.radius
        blur: 12
    }
    // Measures what one line would take, for the words to be no wider than they need.
    Txt {
        id: oneLine

        visible: false
        text: root.text
        size: Theme.smallSize
        Accessible.ignored: true
    }
    Txt {
        id: words

        x: 10
        y: 7
        width: Math.min(Math.ceil(oneLine.implicitWidth), 320)
        text: root.text
        size: Theme.smallSize
        color: Theme.ink
        wrapMode: Text.WordWrap
        lineHeight: 1.2
        Accessible.ignored: true
    }

    Accessible.ignored: true
}
