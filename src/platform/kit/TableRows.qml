import QtQuick
import Pellumar.Kit
import Pellumar.Look

// A table's rows as they scroll.
KeyedList {
    id: list

    required property UITableView table
    property real rowHeight: Math.max(64, 36 + Theme.fontTitle + Theme.fontBody)
    property real readableWidth: Math.min(width, Theme.readableWidth)

    model: table.rowCount
    currentIndex: 0
    boundsBehavior: Flickable.DragOverBounds

    delegate: ViewHost {
        id: host

        required property int index

        // qmllint disable unqualified
        x: (list.width - width) / 2
        width: list.readableWidth
        height: list.rowHeight
        onActiveFocusChanged: if (activeFocus) list.currentIndex = index
        Component.onCompleted: list.table.show(index, host)
        Component.onDestruction: list.table.hide(host)
        ListView.onPooled: list.table.hide(host)
        ListView.onReused: list.table.show(index, host)
        // qmllint enable unqualified
    }
}
