import QtQuick
import QtQuick.Controls.Basic

// One line that is typed.
TextField {
    id: field

    implicitHeight: Math.max(Theme.touchTarget, contentHeight + 2 * Theme.space3)
    leftPadding: Theme.space3
    rightPadding: Theme.space3
    color: Theme.text
    font.pixelSize: Theme.fontTitle
    placeholderTextColor: Theme.textSecondary
    selectionColor: Theme.accentBottom
    selectedTextColor: Theme.onAccent
    verticalAlignment: TextInput.AlignVCenter
    Accessible.role: Accessible.EditableText
    Accessible.name: placeholderText

    background: Rectangle {
        radius: Theme.controlRadius
        color: Theme.background
        border.width: field.activeFocus ? 2 : 1
        border.color: field.activeFocus ? Theme.accentText : Theme.hairline
    }
}
