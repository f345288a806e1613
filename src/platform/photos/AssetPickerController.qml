import QtQuick
import QtQuick.Layouts
import QtQuick.Controls.Basic
import Pellumar.Photos
import Pellumar.Look

Sheet {
    id: root

    required property AssetPickerController controller

    progress: controller.presentation
    fullHeight: true
    preferredWidth: Theme.readableWidth
    onDismissed: controller.cancelTapped()
    Accessible.name: header.title

    ColumnLayout {
        anchors.fill: parent
        spacing: 0
        SheetHeader {
            id: header
            Layout.fillWidth: true
            Layout.margins: Theme.space1
            title: root.controller.counter === "" ? qsTr("Choose photos and videos")
                                                  : root.controller.counter
            confirmText: qsTr("Add")
            canConfirm: root.controller.selectedCount > 0
            onCancelled: root.controller.cancelTapped()
            onConfirmed: root.controller.confirmTapped()
        }
        ListView {
            Layout.fillWidth: true
            Layout.preferredHeight: Theme.touchTarget
            Layout.bottomMargin: Theme.space2
            orientation: ListView.Horizontal
            leftMargin: Theme.space4
            rightMargin: Theme.space4
            spacing: Theme.space2
            clip: true
            model: root.controller.albumNames
            delegate: Chip {
                required property int index
                required property string modelData

                text: modelData
                // qmllint disable unqualified
                isCurrent: index === root.controller.album
                onClicked: root.controller.albumTapped(index)
                // qmllint enable unqualified
            }
        }
        GridView {
            id: grid

            readonly property int columns: Math.max(3, Math.floor(width / 150))

            objectName: "assetGrid"
            Layout.fillWidth: true
            Layout.fillHeight: true
            clip: true
            focus: true
            reuseItems: true
            cellWidth: Math.floor(width / columns)
            cellHeight: cellWidth
            cacheBuffer: 2 * cellHeight
            keyNavigationEnabled: true
            model: root.controller.model
            ScrollBar.vertical: ScrollBar { Accessible.ignored: true }
            Accessible.role: Accessible.List
            Accessible.name: header.title
            delegate: AssetTile {
                // qmllint disable unqualified
                width: grid.cellWidth
                height: grid.cellHeight
                isFull: root.controller.isFull
                onClicked: root.controller.assetTapped(index)
                // qmllint enable unqualified
            }
            EmptyState {
                anchors.centerIn: parent
                width: parent.width - 2 * Theme.space6
                visible: grid.count === 0
                iconName: "photos"
                text: root.controller.isLoading ? qsTr("Looking for photos and videos")
                                                : qsTr("There are no photos or videos in your Pictures and Videos folders")
            }
        }
    }
}
