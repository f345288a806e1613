import QtQuick
import QtQuick.Layouts
import Pellumar.Documents
import Pellumar.Look

Sheet {
    id: root

    required property UIDocumentPickerViewController controller

    progress: controller.presentation
    fullHeight: true
    preferredWidth: Theme.readableWidth
    onDismissed: controller.cancelTapped()
    Keys.onPressed: event => list.take(event)
    Accessible.name: controller.heading

    Connections {
        target: root.controller
        function onListed(row: int): void { list.begin(row) }
    }
    ColumnLayout {
        anchors.fill: parent
        spacing: 0
        SheetHeader {
            Layout.fillWidth: true
            Layout.margins: Theme.space1
            title: root.controller.heading
            confirmText: root.controller.confirmTitle
            canConfirm: root.controller.canConfirm
            onCancelled: root.controller.cancelTapped()
            onConfirmed: root.controller.confirmTapped()
        }
        ListView {
            Layout.fillWidth: true
            Layout.preferredHeight: Theme.touchTarget
            orientation: ListView.Horizontal
            leftMargin: Theme.space4
            rightMargin: Theme.space4
            spacing: Theme.space2
            clip: true
            model: root.controller.placeNames
            delegate: Chip {
                required property int index
                required property string modelData

                text: modelData
                // qmllint disable unqualified
                iconName: root.controller.placeIcons[index] ?? ""
                isCurrent: index === root.controller.currentPlace
                onClicked: root.controller.placeTapped(index)
                // qmllint enable unqualified
            }
        }
        RowLayout {
            Layout.fillWidth: true
            Layout.leftMargin: Theme.space2
            Layout.rightMargin: Theme.space2
            spacing: 0
            IconButton {
                iconName: "up"
                text: qsTr("Folder above")
                enabled: root.controller.canGoUp
                opacity: enabled ? 1 : 0.4
                onClicked: root.controller.upTapped()
            }
            FolderWay {
                Layout.fillWidth: true
                Layout.preferredHeight: Theme.touchTarget
                controller: root.controller
            }
            IconButton {
                iconName: "newFolder"
                text: qsTr("New folder")
                visible: root.controller.picksFolder
                onClicked: root.controller.newFolderTapped()
            }
        }
        BodyText {
            Layout.fillWidth: true
            Layout.leftMargin: Theme.space4
            Layout.rightMargin: Theme.space4
            Layout.bottomMargin: Theme.space2
            visible: text !== ""
            text: root.controller.failure
            color: Theme.error
            Accessible.role: Accessible.AlertMessage
        }
        PickedRow {
            Layout.fillWidth: true
            visible: root.controller.allowsMultipleSelection && count > 0
            picked: root.controller.picked
        }
        Rectangle {
            Layout.fillWidth: true
            Layout.preferredHeight: 1
            color: Theme.hairline
        }
        KeyedList {
            id: list
            objectName: "documents"
            Layout.fillWidth: true
            Layout.fillHeight: true
            clip: true
            focus: true
            model: root.controller.model
            onSearched: (start, from) => {
                const row = root.controller.model.rowStartingWith(start, from)
                if (row >= 0) go(row)
            }
            onBackAsked: root.controller.upTapped()
            onAllAsked: root.controller.selectAllTapped()
            Accessible.name: root.controller.folderName
            delegate: DocumentRow {
                // qmllint disable unqualified
                width: list.width
                keyedList: list
                controller: root.controller
                // qmllint enable unqualified
            }
            footer: NotShownNote {
                // qmllint disable unqualified
                width: list.width
                height: visible ? implicitHeight : 0
                visible: list.count > 0 && controller.model.notShown !== ""
                controller: root.controller
                // qmllint enable unqualified
            }
            FolderState {
                anchors.centerIn: parent
                width: parent.width - 2 * Theme.space6
                visible: list.count === 0
                controller: root.controller
            }
        }
    }
}
