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
            id: rows
            objectName: "rows"
            anchors.fill: parent
            table: tableView
            focus: true
            Accessible.name: root.controller.navigationItem.title
            onSearched: (start, from) => {
                const row = root.controller.rowOf(start, from)
                if (row >= 0) go(row)
            }
            onAllAsked: root.controller.shareAll()
            header: ResultsHeader {
                // qmllint disable unqualified
                controller: root.controller
                width: rows.width
                // qmllint enable unqualified
            }
        }
    }
    EmptyState {
        anchors.centerIn: parent
        width: Math.min(parent.width - 2 * Theme.space6, Theme.readableWidth)
        visible: root.controller.listedCount === 0
        iconName: "archive"
        text: root.controller.hiddenCount > 0 ? qsTr("All that is in this archive is hidden")
                                              : qsTr("There was nothing in this archive")
    }
}
