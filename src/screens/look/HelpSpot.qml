import QtQuick

// Makes a control offer its help, as long as that is wanted.
QtObject {
    id: root

    required property Item control
    required property string text
    required property bool wanted

    onTextChanged: root.tell()
    onWantedChanged: root.tell()
    Component.onDestruction: Help.takeBack(root.control)

    function tell(): void {
        if (root.wanted && root.text !== "")
            Help.offer(root.control, root.text);
        else
            Help.takeBack(root.control);
    }
}
