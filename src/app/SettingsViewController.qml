import QtQuick
import QtQuick.Layouts
import Pellumar.App
import Pellumar.Kit
import Pellumar.Look

ScrollingScreen {
    id: root

    required property SettingsViewController controller

    topMargin: Theme.space4

    Surface {
        Layout.fillWidth: true
        implicitHeight: usage.implicitHeight + 2 * Theme.space4
        ColumnLayout {
            id: usage
            anchors.fill: parent
            anchors.margins: Theme.space4
            spacing: Theme.space2
            RowLayout {
                Layout.fillWidth: true
                Layout.preferredHeight: Math.max(Theme.touchTarget, label.implicitHeight)
                BodyText {
                    id: label
                    Layout.fillWidth: true
                    text: qsTr("Send usage data")
                    font.pixelSize: Theme.fontTitle
                    Accessible.ignored: true
                }
                ToggleSwitch {
                    objectName: "usageSwitch"
                    focus: true
                    text: label.text
                    onToggled: root.controller.appUsageSwitchChanged()
                }
            }
            BodyText {
                Layout.fillWidth: true
                text: qsTr("Which buttons are used, and whether archives could be read or made. Never what is in them. Switched off, nothing about this is kept or sent. What was kept before may still be sent.")
                color: Theme.textSecondary
            }
            Flow {
                Layout.fillWidth: true
                Layout.leftMargin: -Theme.space3
                QuietButton {
                    text: qsTr("See more")
                    onClicked: root.controller.seeMoreTapped()
                }
                QuietButton {
                    objectName: "usageDataButton"
                    text: qsTr("What has been kept…")
                    onClicked: root.controller.usageDataTapped()
                }
            }
        }
    }
    ActionCard {
        Layout.fillWidth: true
        compact: true
        objectName: "developerRow"
        iconName: "application"
        text: qsTr("More from us")
        description: qsTr("Our other applications")
        onClicked: root.controller.didSelectRow(root.controller.developerRow)
    }
}
