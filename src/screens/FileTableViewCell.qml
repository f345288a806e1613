import QtQuick
import QtQuick.Layouts
import Pellumar.Screens
import Pellumar.Look

FocusScope {
    id: root

    required property FileTableViewCell controller

    PlainButton {
        id: opener
        objectName: "openButton"
        anchors.fill: parent
        focus: true
        text: qsTr("Open %1").arg(title.text)
        description: root.controller.detail
        onClicked: root.controller.openTapped()
        background: Rectangle {
            color: opener.down || opener.hovered ? Theme.pressed : "transparent"
            FocusRing { control: opener; anchors.margins: 2; radius: Theme.space2 }
        }
    }
    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.space4
        anchors.rightMargin: Theme.space2
        spacing: Theme.space3

        IconTile {
            objectName: "fileImageView"
            size: 44
            iconSize: 26
            clip: true
            name: root.controller.iconName
            showsIcon: picture.status !== Image.Ready || picture.implicitWidth <= 1
            Image {
                id: picture
                anchors.fill: parent
                source: root.controller.thumbnail
                sourceSize.width: 88
                sourceSize.height: 88
                fillMode: Image.PreserveAspectCrop
                asynchronous: true
            }
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 2
            BodyText {
                id: title
                objectName: "titleLabel"
                Layout.fillWidth: true
                font.pixelSize: Theme.fontTitle
                wrapMode: Text.NoWrap
                elide: Text.ElideMiddle
            }
            BodyText {
                Layout.fillWidth: true
                text: root.controller.detail
                color: Theme.textSecondary
                font.pixelSize: Theme.fontCaption
                wrapMode: Text.NoWrap
                elide: Text.ElideRight
            }
        }
        IconButton {
            objectName: "shareButton"
            iconName: "share"
            text: qsTr("Share %1").arg(title.text)
            onClicked: root.controller.shareTapped()
        }
    }
    Rectangle {
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.leftMargin: 72
        height: 1
        color: Theme.hairline
    }
}
