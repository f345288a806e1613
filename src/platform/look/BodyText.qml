import QtQuick

// A run of text. What it shows is never taken for markup: names of files come from anywhere.
Text {
    color: Theme.text
    font.pixelSize: Theme.fontBody
    font.weight: Theme.weightNormal
    textFormat: Text.PlainText
    wrapMode: Text.Wrap
    // The side of the language of the window, whatever that of the text is.
    horizontalAlignment: Text.AlignLeft
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
