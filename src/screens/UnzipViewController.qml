import QtQuick
import Pellumar.Screens
import Pellumar.Kit
import Pellumar.Look

ScreenView {
    id: root

    required property UnzipViewController controller

    Keys.onPressed: event => {
        event.accepted = event.matches(StandardKey.SelectAll)
        if (event.accepted) controller.shareAll()
    }

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
            onSearched: (letters, row) => {
                const found = root.controller.rowOf(letters, row)
                if (found >= 0) go(found)
            }
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
