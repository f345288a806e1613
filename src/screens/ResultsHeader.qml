import QtQuick
import QtQuick.Layouts
import Pellumar.Screens
import Pellumar.Look

// Above the list of results: what they come from, and what can be done with all of them.
Item {
    id: root

    required property UnzipViewController controller
    readonly property int hidden: controller.hiddenCount

    implicitHeight: visible ? content.implicitHeight + Theme.space4 + Theme.space3 : 0
    visible: controller.listedCount > 0 || hidden > 0

    ColumnLayout {
        id: content
        anchors.horizontalCenter: parent.horizontalCenter
        y: Theme.space4
        width: Math.min(parent.width, Theme.readableWidth) - 2 * Theme.space4
        spacing: Theme.space3

        // A layout in a layout misses it when the size is told before the list is on the screen.
        Column {
            Layout.fillWidth: true
            Heading {
                width: parent.width
                visible: text !== ""
                text: root.controller.archiveName
                wrapMode: Text.WrapAnywhere
                maximumLineCount: 2
                elide: Text.ElideMiddle
            }
            BodyText {
                width: parent.width
                text: root.controller.detail
                color: Theme.textSecondary
            }
        }
        PrimaryButton {
            Layout.fillWidth: true
            objectName: "saveAllButton"
            text: qsTr("Save all to…")
            onClicked: root.controller.saveAll()
        }
        HeaderLine {
            objectName: "savedLine"
            text: root.controller.savedTo === "" ? "" : qsTr("Saved to %1").arg(root.controller.savedTo)
            action: root.controller.canShowSaved ? qsTr("Show in files") : ""
            onActed: root.controller.showSaved()
        }
        HeaderLine {
            objectName: "belowLine"
            text: root.controller.archiveBelow === "" ? ""
                : qsTr("What came of %1 is still open: Back leads there.").arg(root.controller.archiveBelow)
        }
        HeaderLine {
            objectName: "remarksLine"
            text: root.controller.remarks
            action: qsTr("Show")
            onActed: root.controller.showRemarks()
        }
        HeaderLine {
            objectName: "hiddenLine"
            text: root.hidden === 0 ? ""
                : qsTr("%Ln hidden files are not in the list. They are saved with all.", "", root.hidden)
        }
    }
}
