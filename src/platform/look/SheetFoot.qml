import QtQuick
import QtQuick.Layouts

// The lower end of a sheet that is only read: what it says can be copied, and it can be closed.
RowLayout {
    id: foot

    property alias copyTitle: copy.text
    property alias canCopy: copy.enabled
    property alias closeFocus: close.focus
    signal copied
    signal closed

    Layout.fillWidth: true
    QuietButton {
        id: copy
        Layout.fillWidth: true
        Layout.preferredWidth: 1
        objectName: "copyButton"
        color: Theme.text
        onClicked: foot.copied()
    }
    QuietButton {
        id: close
        Layout.fillWidth: true
        Layout.preferredWidth: 1
        objectName: "doneButton"
        focus: true
        text: qsTr("Done")
        onClicked: foot.closed()
    }
}
