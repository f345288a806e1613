import QtQuick
import QtQuick.Layouts
import Pellumar.Look

// A line of a list's header that says something, with a button for what can be done about it.
RowLayout {
    id: line

    property string text: ""
    // The button's title; none if it is empty.
    property string action: ""

    signal acted()

    Layout.fillWidth: true
    visible: text !== ""
    spacing: Theme.space2

    BodyText {
        Layout.fillWidth: true
        text: line.text
        color: Theme.textSecondary
    }
    QuietButton {
        // Its words end where the lines do.
        Layout.rightMargin: -Theme.space3
        visible: line.action !== ""
        text: line.action
        onClicked: line.acted()
    }
}
