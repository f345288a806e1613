import QtQuick

// What a sheet, a dialog or a card is about.
BodyText {
    font.pixelSize: Theme.fontHeading
    font.weight: Theme.weightStrong
    Accessible.role: Accessible.Heading
}
