import QtQuick
import Pellumar.Screens
import Pellumar.Kit
import Pellumar.Look

ScreenView {
    id: root

    required property UnzipViewController controller

    UITableView {
        id: tableView
        objectName: "tableView"
        anchors.fill: parent

        TableRows {
            objectName: "rows"
            anchors.fill: parent
            table: tableView
            focus: true
            Accessible.name: root.controller.navigationItem.title
        }
    }
    EmptyState {
        anchors.centerIn: parent
        width: Math.min(parent.width - 2 * Theme.space6, Theme.readableWidth)
        visible: root.controller.isEmpty
        iconName: "archive"
        text: qsTr("There was nothing in this archive")
    }
}
