import QtQuick
import Pellumar.Look

// A photo or video that can be selected.
PlainButton {
    id: tile

    required property int index
    required property string thumbnail
    required property string name
    required property bool isVideo
    required property bool isSelected
    required property int ordinal
    // Whether no more can be selected.
    property bool isFull: false

    text: name
    description: isVideo ? qsTr("Video") : qsTr("Photo")
    padding: 1
    enabled: !isFull || isSelected
    opacity: enabled ? 1 : 0.4
    // A check box then, for screen readers.
    checkable: true
    checked: isSelected
    Accessible.onToggleAction: if (enabled) clicked()

    background: Rectangle {
        anchors.fill: parent
        anchors.margins: 1
        color: Theme.pressed
        Icon {
            anchors.centerIn: parent
            width: 32
            height: 32
            name: tile.isVideo ? "video" : "image"
            color: Theme.textSecondary
            visible: picture.status !== Image.Ready || picture.implicitWidth <= 1
        }
    }
    contentItem: Item {  // qmllint disable deferred-property-id
        Image {
            id: picture
            anchors.fill: parent
            source: tile.thumbnail
            // One of the cache's own sizes, so that none is made twice.
            sourceSize.width: 256
            sourceSize.height: 256
            fillMode: Image.PreserveAspectCrop
            asynchronous: true
            cache: false
            clip: true
        }
        Rectangle {
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            anchors.margins: Theme.space1
            height: fileName.implicitHeight + Theme.space1
            radius: Theme.space2
            color: Theme.scrim
            visible: tile.isVideo
            BodyText {
                id: fileName
                anchors.fill: parent
                anchors.leftMargin: Theme.space2
                anchors.rightMargin: Theme.space2
                text: tile.name
                color: Theme.onPicture
                font.pixelSize: Theme.fontCaption
                verticalAlignment: Text.AlignVCenter
                wrapMode: Text.NoWrap
                elide: Text.ElideMiddle
                Accessible.ignored: true
            }
        }
        Rectangle {
            anchors.fill: parent
            color: "transparent"
            border.width: 3
            border.color: Theme.accentBottom
            visible: tile.isSelected
        }
        Rectangle {
            anchors.right: parent.right
            anchors.top: parent.top
            anchors.margins: Theme.space2
            width: Math.max(height, ordinal.implicitWidth + Theme.space3)
            height: 24
            radius: height / 2
            color: tile.isSelected ? Theme.accentBottom : "transparent"
            border.width: tile.isSelected ? 0 : 2
            border.color: Theme.onPicture
            BodyText {
                id: ordinal
                anchors.centerIn: parent
                text: tile.isSelected ? tile.ordinal : ""
                color: Theme.onAccent
                font.pixelSize: Theme.fontCaption
                font.weight: Theme.weightStrong
                Accessible.ignored: true
            }
        }
        FocusRing { control: tile; anchors.margins: 2; radius: 2 }
    }
}
