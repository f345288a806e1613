import QtQuick
import QtQuick.Layouts
import Pellumar.Kit
import Pellumar.Look

FocusScope {
    id: root

    required property UITabBarController controller

    Accessible.role: Accessible.Pane
    Accessible.name: "Pellumar Zip"

    Rectangle {
        anchors.fill: parent
        color: Theme.background
    }
    ViewHost {
        objectName: "contentHost"
        focus: true
        anchors.fill: parent
        anchors.bottomMargin: bar.visible ? bar.height : 0
    }
    Rectangle {
        id: bar
        anchors.bottom: parent.bottom
        width: parent.width
        height: Math.max(56, 38 + Math.ceil(1.4 * Theme.fontCaption) + Theme.space1)
        visible: !root.controller.isBarHidden
        color: root.controller.hasOpaqueBar ? Theme.surface : Theme.background
        Accessible.role: Accessible.PageTabList
        Accessible.name: qsTr("Sections")

        Rectangle {
            width: parent.width
            height: 1
            color: Theme.hairline
        }
        RowLayout {
            anchors.horizontalCenter: parent.horizontalCenter
            width: Math.min(parent.width, Theme.readableWidth)
            height: parent.height
            spacing: 0
            Repeater {
                model: root.controller.titles
                TabChoice {
                    id: tab

                    required property int index
                    required property string modelData
                    // qmllint disable unqualified
                    readonly property bool isSelected: index === root.controller.selectedIndex
                    // qmllint enable unqualified

                    Layout.fillWidth: true
                    Layout.preferredWidth: 1
                    Layout.fillHeight: true
                    text: modelData
                    Accessible.selected: isSelected
                    Accessible.selectable: true
                    onClicked: root.controller.select(index)  // qmllint disable unqualified
                    background: FocusRing {
                        control: tab
                        anchors.margins: Theme.space1
                    }
                    contentItem: Column {  // qmllint disable deferred-property-id
                        topPadding: Theme.space1
                        spacing: Theme.space1
                        Icon {
                            anchors.horizontalCenter: parent.horizontalCenter
                            name: root.controller.images[tab.index]  // qmllint disable unqualified
                            color: label.color
                        }
                        BodyText {
                            id: label
                            width: parent.width
                            horizontalAlignment: Text.AlignHCenter
                            text: tab.text
                            color: tab.isSelected ? Theme.accentText : Theme.textSecondary
                            font.pixelSize: Theme.fontCaption
                            font.weight: tab.isSelected ? Theme.weightStrong : Theme.weightNormal
                            wrapMode: Text.NoWrap
                            elide: Text.ElideRight
                            Accessible.ignored: true
                        }
                    }
                }
            }
        }
    }
}
