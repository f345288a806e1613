import QtQuick
import QtQuick.Layouts
import Pellumar.Look

// The card of a dialog, in the middle of what the keyboard leaves free, over the dimmed screen.
FocusScope {
    id: root

    required property real presentation
    default property alias content: column.data

    Rectangle {
        anchors.fill: parent
        color: Theme.scrim
        opacity: root.presentation
        // Keeps the pointer from the screen below.
        TapHandler {}
        HoverHandler {}
    }
    Surface {
        // The tools know nothing of its type.
        readonly property var keyboard: Qt.inputMethod
        readonly property real spare: root.height - height - keyboard.keyboardRectangle.height

        anchors.horizontalCenter: parent.horizontalCenter
        y: Math.max(Theme.space4, spare / 2)
        width: Math.min(parent.width - 2 * Theme.space4, Math.round(320 * Math.min(1.5, Theme.textScale)))
        height: column.implicitHeight + 2 * Theme.space5
        opacity: root.presentation

        ColumnLayout {
            id: column
            anchors.fill: parent
            anchors.margins: Theme.space5
            spacing: Theme.space3
        }
    }
}
