import QtQuick
import QtQuick.Layouts
import Pellumar.Look

// What lies behind an alert's message: apart from it, in words of its own, with a way to hand on
// what stands behind those.
Rectangle {
    id: block

    property alias text: words.text
    // What can be done about it; empty if there is nothing.
    property string remedy: ""
    signal copied
    signal remedied

    implicitHeight: content.implicitHeight + Theme.space3 + Theme.space1
    radius: Theme.controlRadius
    color: Theme.background

    ColumnLayout {
        id: content
        x: Theme.space3
        y: Theme.space3
        width: parent.width - 2 * Theme.space3
        spacing: 0

        BodyText {
            id: words
            Layout.fillWidth: true
            objectName: "reason"
        }
        QuietButton {
            Layout.fillWidth: true
            Layout.topMargin: Theme.space2
            objectName: "remedy"
            visible: text !== ""
            text: block.remedy
            onClicked: block.remedied()
        }
        QuietButton {
            Layout.alignment: Qt.AlignRight
            objectName: "copyReason"
            rightPadding: 0
            text: qsTr("Copy details")
            color: Theme.textSecondary
            onClicked: block.copied()
        }
    }
}
