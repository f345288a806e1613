import QtQuick
import QtQuick.Layouts
import Pellumar.Screens
import Pellumar.Kit
import Pellumar.Look

ScrollingScreen {
    id: root

    required property ViewController controller
    readonly property bool isCompact: height < 500

    topMargin: topConstraint.constant
    spacing: 0

    NSLayoutConstraint {
        id: topConstraint
        objectName: "topConstraint"
        constant: 32
    }
    NSLayoutConstraint {
        id: secondaryTopConstraint
        objectName: "secondaryTopConstraint"
        constant: 8
    }
    BodyText {
        Layout.fillWidth: true
        text: qsTr("What shall it be?")
        font.pixelSize: Theme.fontDisplay
        font.weight: Theme.weightStrong
        Accessible.role: Accessible.Heading
    }
    BodyText {
        Layout.fillWidth: true
        Layout.topMargin: secondaryTopConstraint.constant
        Layout.bottomMargin: root.isCompact ? Theme.space3 : Theme.space5
        text: qsTr("Your files stay on this device.")
        color: Theme.textSecondary
        font.pixelSize: Theme.fontTitle
    }
    ActionCard {
        Layout.fillWidth: true
        objectName: "unzipButton"
        focus: true
        primary: true
        compact: root.isCompact
        iconName: "unzip"
        text: qsTr("Unzip")
        description: qsTr("Open an archive and take out what is in it")
        onClicked: root.controller.unzipTapped()
    }
    ActionCard {
        Layout.fillWidth: true
        Layout.topMargin: Theme.space4
        objectName: "zipButton"
        compact: root.isCompact
        iconName: "zip"
        text: qsTr("Zip")
        description: qsTr("Put files, photos and videos into one archive")
        onClicked: root.controller.zipTapped()
    }
}
