import QtQuick
import QtQuick.Layouts
import Pellumar.Kit
import Pellumar.Look

FocusScope {
    id: root

    required property UINavigationController controller

    Accessible.role: Accessible.Pane
    Accessible.name: controller.topItem.title

    Rectangle {
        anchors.fill: parent
        color: Theme.background
    }
    ViewHost {
        objectName: "contentHost"
        focus: true
        anchors.fill: parent
        anchors.topMargin: bar.visible ? bar.height : 0
        clip: true
    }
    Rectangle {
        id: bar
        width: parent.width
        height: Theme.barHeight
        visible: !root.controller.isBarHidden
        color: Theme.background

        RowLayout {
            anchors.fill: parent
            anchors.leftMargin: Theme.space1
            anchors.rightMargin: Theme.space1
            spacing: 0
            IconButton {
                objectName: "backButton"
                visible: root.controller.canPop
                iconName: "back"
                text: qsTr("Back")
                // A click leaves the keyboard with the screen, or Return would go back, unseen.
                focusPolicy: Qt.TabFocus
                onClicked: root.controller.backTapped()
            }
            Heading {
                Layout.fillWidth: true
                Layout.leftMargin: root.controller.canPop ? Theme.space1 : Theme.space4
                text: root.controller.topItem.title
                wrapMode: Text.NoWrap
                elide: Text.ElideRight
                // Large text must not cost the words.
                verticalAlignment: Text.AlignVCenter
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: 14
            }
            QuietButton {
                visible: text !== ""
                focusPolicy: Qt.TabFocus
                text: root.controller.topItem.rightTitle
                onClicked: root.controller.rightTapped()
            }
        }
        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: 1
            color: root.controller.shadowColor ?? Theme.hairline
        }
    }
    // The back gesture begins at the edge.
    Item {
        anchors.left: parent.left
        width: Theme.space5
        height: parent.height
        DragHandler {
            target: null
            enabled: root.controller.canPop
            xAxis.enabled: true
            yAxis.enabled: false
            acceptedDevices: PointerDevice.TouchScreen
            onActiveChanged: if (!active && (root.LayoutMirroring.enabled ? -1 : 1) * translation.x > 60) root.controller.backTapped()
        }
    }
}
