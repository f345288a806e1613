import QtQuick
import QtQuick.Layouts
import Pellumar.Screens
import Pellumar.Kit
import Pellumar.Look

ScrollingScreen {
    id: root

    required property ZipViewController controller

    BodyText {
        Layout.fillWidth: true
        text: qsTr("Where is what you want to put into the archive?")
        color: Theme.textSecondary
        font.pixelSize: Theme.fontTitle
    }
    ActionCard {
        Layout.fillWidth: true
        objectName: "fromFilesButton"
        focus: true
        iconName: "folder"
        text: qsTr("Files")
        description: qsTr("Anything on this device, many at once")
        onClicked: root.controller.fromFilesTapped()
    }
    ActionCard {
        Layout.fillWidth: true
        objectName: "fromPhotosButton"
        iconName: "photos"
        text: qsTr("Photos and videos")
        description: qsTr("From your Pictures and Videos folders")
        onClicked: root.controller.fromPhotosTapped()
    }
}
