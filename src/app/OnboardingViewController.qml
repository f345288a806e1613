import QtQuick
import QtQuick.Layouts
import Pellumar.App
import Pellumar.Kit
import Pellumar.Look

ScreenView {
    id: root

    required property OnboardingViewController controller

    Accessible.role: Accessible.Pane
    Accessible.name: "Pellumar Zip"

    NSLayoutConstraint {
        id: topConstraint
        objectName: "topConstraint"
        constant: 64
    }
    Item {
        objectName: "gradientView"
        anchors.fill: parent
    }
    Flickable {
        anchors.fill: parent
        contentHeight: Math.max(height, content.implicitHeight + topConstraint.constant + Theme.space4)
        boundsBehavior: Flickable.StopAtBounds

        ColumnLayout {
            id: content
            anchors.fill: parent
            anchors.topMargin: topConstraint.constant
            anchors.bottomMargin: Theme.space4
            spacing: Theme.space5

            Column {
                objectName: "logoContainerView"
                Layout.fillWidth: true
                spacing: Theme.space2
                Icon {
                    anchors.horizontalCenter: parent.horizontalCenter
                    width: Math.min(96, root.height / 6)
                    height: width
                    name: "zip"
                    color: Theme.onAccent
                }
                BodyText {
                    width: parent.width
                    text: "Pellumar Zip"
                    color: Theme.onAccent
                    font.pixelSize: Theme.fontDisplay
                    font.weight: Theme.weightStrong
                    horizontalAlignment: Text.AlignHCenter
                    Accessible.role: Accessible.Heading
                }
            }
            Item { Layout.fillHeight: true }
            Surface {
                objectName: "cardView"
                Layout.alignment: Qt.AlignHCenter
                Layout.preferredWidth: Math.min(root.width - 2 * Theme.space4, 440)
                Layout.preferredHeight: card.implicitHeight + 2 * Theme.space5

                ColumnLayout {
                    id: card
                    anchors.fill: parent
                    anchors.margins: Theme.space5
                    spacing: Theme.space4
                    OnboardingPoint {
                        iconName: "unzip"
                        text: qsTr("Open archives in a moment, from here or from any other application")
                    }
                    OnboardingPoint {
                        iconName: "zip"
                        text: qsTr("Put files, photos and videos into one archive")
                    }
                    OnboardingPoint {
                        iconName: "share"
                        text: qsTr("Share what comes out, one by one or all together")
                    }
                    PrimaryButton {
                        Layout.fillWidth: true
                        Layout.topMargin: Theme.space2
                        objectName: "okButton"
                        focus: true
                        text: qsTr("OK")
                        onClicked: root.controller.okTapped()
                    }
                }
            }
        }
    }
}
