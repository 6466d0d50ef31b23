import QtQuick

Rectangle {
    radius: Theme.cardRadius
    color: Theme.card
    border.width: 1
    border.color: Theme.line
}
