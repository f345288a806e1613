import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import Pellumar.App
import Pellumar.Look

Sheet {
    id: root

    required property UsageDataViewController controller

    progress: controller.presentation
    fullHeight: true
    onDismissed: controller.doneTapped()
    Accessible.name: heading.text

    ColumnLayout {
        anchors.fill: parent
        anchors.topMargin: Theme.space5
        anchors.bottomMargin: Theme.space3
        spacing: Theme.space3

        Heading {
            id: heading
            Layout.fillWidth: true
            Layout.leftMargin: Theme.space5
            Layout.rightMargin: Theme.space5
            text: qsTr("What has been kept")
        }
        BodyText {
            Layout.fillWidth: true
            Layout.leftMargin: Theme.space5
            Layout.rightMargin: Theme.space5
            visible: list.count > 0
            text: root.controller.summary
            color: Theme.textSecondary
        }
        Rectangle {
            Layout.fillWidth: true
            Layout.preferredHeight: 1
            visible: list.count > 0
            color: Theme.hairline
        }
        ListView {
            id: list
            objectName: "usageRows"
            Layout.fillWidth: true
            Layout.fillHeight: true
            clip: true
            focus: count > 0
            activeFocusOnTab: count > 0
            boundsBehavior: Flickable.StopAtBounds
            model: root.controller.rows
            ScrollBar.vertical: ScrollBar { Accessible.ignored: true }
            delegate: Column {
                id: row

                required property var modelData

                x: Theme.space5
                width: ListView.view.width - 2 * Theme.space5
                topPadding: modelData.isHeading ? Theme.space4 : Theme.space2
                bottomPadding: Theme.space2
                Accessible.role: modelData.isHeading ? Accessible.Heading : Accessible.ListItem
                Accessible.name: modelData.isHeading ? title.text : title.text + ", " + detail.text

                BodyText {
                    id: title
                    width: row.width
                    text: row.modelData.title
                    font.weight: row.modelData.isHeading ? Theme.weightStrong : Font.Normal
                    Accessible.ignored: true
                }
                BodyText {
                    id: detail
                    width: row.width
                    visible: text !== ""
                    text: row.modelData.detail
                    font.pixelSize: Theme.fontCaption
                    color: Theme.textSecondary
                    Accessible.ignored: true
                }
            }
            EmptyState {
                anchors.centerIn: parent
                width: parent.width - 2 * Theme.space5
                visible: list.count === 0 && root.controller.summary !== ""
                iconName: "text"
                text: root.controller.summary
            }
        }
        SheetFoot {
            Layout.leftMargin: Theme.space3
            Layout.rightMargin: Theme.space3
            copyTitle: qsTr("Copy all")
            canCopy: root.controller.canCopy
            closeFocus: list.count === 0
            onCopied: root.controller.copyTapped()
            onClosed: root.controller.doneTapped()
        }
    }
}
