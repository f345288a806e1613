import QtQuick
import QtQuick.Layouts
import QtQuick.Controls.Basic
import Pellumar.Documents
import Pellumar.Look

Sheet {
    id: root

    required property UIDocumentPickerViewController controller

    progress: controller.presentation
    fullHeight: true
    preferredWidth: Theme.readableWidth
    onDismissed: controller.cancelTapped()
    Accessible.role: Accessible.Dialog
    Accessible.name: controller.heading

    ColumnLayout {
        anchors.fill: parent
        spacing: 0
        SheetHeader {
            Layout.fillWidth: true
            Layout.margins: Theme.space1
            title: root.controller.heading
            confirmText: root.controller.model.selectedCount > 1
                         ? root.controller.confirmTitle + " (" + root.controller.model.selectedCount + ")"
                         : root.controller.confirmTitle
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
                iconName: root.controller.placeIcons[index]
                isCurrent: index === root.controller.currentPlace
                onClicked: root.controller.placeTapped(index)
                // qmllint enable unqualified
            }
        }
        RowLayout {
            Layout.fillWidth: true
            Layout.leftMargin: Theme.space2
            Layout.rightMargin: Theme.space4
            IconButton {
                iconName: "up"
                text: qsTr("Folder above")
                enabled: root.controller.canGoUp
                opacity: enabled ? 1 : 0.4
                onClicked: root.controller.upTapped()
            }
            BodyText {
                Layout.fillWidth: true
                text: root.controller.failure === "" ? root.controller.folderName
                                                     : root.controller.failure
                color: root.controller.failure === "" ? Theme.text : Theme.error
                font.weight: Theme.weightStrong
                elide: Text.ElideMiddle
                maximumLineCount: 2
            }
        }
        Rectangle {
            Layout.fillWidth: true
            Layout.preferredHeight: 1
            color: Theme.hairline
        }
        ListView {
            id: list
            Layout.fillWidth: true
            Layout.fillHeight: true
            clip: true
            reuseItems: true
            focus: true
            model: root.controller.model
            ScrollBar.vertical: ScrollBar { Accessible.ignored: true }
            Accessible.role: Accessible.List
            Accessible.name: root.controller.folderName
            delegate: DocumentRow {
                // qmllint disable unqualified
                width: list.width
                controller: root.controller
                // qmllint enable unqualified
            }
            EmptyState {
                anchors.centerIn: parent
                width: parent.width - 2 * Theme.space6
                visible: list.count === 0 && !root.controller.model.isLoading
                iconName: "folder"
                text: root.controller.model.isUnreadable ? qsTr("This folder cannot be read")
                                                         : qsTr("Nothing to choose here")
            }
        }
    }
}
