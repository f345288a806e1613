import QtQuick

// A run of text. What it shows is never taken for markup: names of files come from anywhere.
Text {
    color: Theme.text
    font.pixelSize: Theme.fontBody
    font.weight: Theme.weightNormal
    textFormat: Text.PlainText
    wrapMode: Text.Wrap
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
