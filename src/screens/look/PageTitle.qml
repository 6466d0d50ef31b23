import QtQuick

// The one heading of a screen.
Txt {
    id: root

    size: Theme.titleSize
    weight: Font.Bold
    font.letterSpacing: -0.7

    Accessible.role: Accessible.Heading
    Accessible.name: root.text
}
