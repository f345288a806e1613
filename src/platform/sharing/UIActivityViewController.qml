import QtQuick
import QtQuick.Layouts
import Pellumar.Sharing
import Pellumar.Look

Sheet {
    id: root

    required property UIActivityViewController controller

    progress: controller.presentation
    preferredHeight: content.implicitHeight + 2 * Theme.space4
    onDismissed: controller.cancelTapped()
    Accessible.name: qsTr("Share")

    ColumnLayout {
        id: content
        width: parent.width
        spacing: Theme.space4

        RowLayout {
            Layout.fillWidth: true
            Layout.leftMargin: Theme.space4
            Layout.rightMargin: Theme.space2
            spacing: Theme.space3
            IconTile { name: root.controller.iconName }
            ColumnLayout {
                Layout.fillWidth: true
                spacing: 0
                BodyText {
                    Layout.fillWidth: true
                    text: root.controller.heading
                    font.pixelSize: Theme.fontTitle
                    font.weight: Theme.weightStrong
                    maximumLineCount: 2
                    wrapMode: Text.WrapAnywhere
                    elide: Text.ElideRight
                }
                BodyText {
                    Layout.fillWidth: true
                    visible: text !== ""
                    text: root.controller.detail
                    color: Theme.textSecondary
                }
            }
            IconButton {
                iconName: "close"
                color: Theme.textSecondary
                text: qsTr("Close")
                onClicked: root.controller.cancelTapped()
            }
        }
        Rectangle {
            Layout.fillWidth: true
            Layout.preferredHeight: 1
            visible: root.controller.titles.length > 0
            color: Theme.hairline
        }
        BodyText {
            Layout.fillWidth: true
            Layout.leftMargin: Theme.space4
            Layout.rightMargin: Theme.space4
            visible: text !== ""
            text: root.controller.failure
            color: Theme.error
        }
        GridLayout {
            Layout.fillWidth: true
            Layout.leftMargin: Theme.space2
            Layout.rightMargin: Theme.space2
            columns: Math.min(4, Math.max(2, Math.floor(content.width / (64 + 20 * Theme.textScale))))
            columnSpacing: 0
            rowSpacing: Theme.space2
            Repeater {
                model: root.controller.titles
                ShareTile {
                    required property int index
                    required property string modelData

                    Layout.fillWidth: true
                    Layout.alignment: Qt.AlignTop
                    focus: index === 0
                    text: modelData
                    // qmllint disable unqualified
                    iconName: root.controller.icons[index]
                    onClicked: root.controller.targetTapped(index)
                    // qmllint enable unqualified
                }
            }
        }
    }
}
