import Brindlet.Screens

// A card that opens to what it holds.
Card {
    property bool opened: false
}
