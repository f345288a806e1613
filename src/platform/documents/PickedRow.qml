import QtQuick
import Pellumar.Documents
import Pellumar.Look

// What has been selected so far, here and in other folders; a tap takes one out again.
ListView {
    id: row

    required property PickedFiles picked

    implicitHeight: Theme.touchTarget + Theme.space2
    orientation: ListView.Horizontal
    leftMargin: Theme.space4
    rightMargin: Theme.space4
    spacing: Theme.space2
    clip: true
    model: picked
    onCountChanged: positionViewAtEnd()
    Accessible.role: Accessible.List
    Accessible.name: qsTr("Selected (%1)").arg(count)
    delegate: Chip {
        id: chip

        required property int index
        required property string name

        text: qsTr("Remove %1").arg(name)
        // qmllint disable unqualified
        onClicked: row.picked.removeAt(index)
        // qmllint enable unqualified
        isCurrent: true
        Accessible.checkable: false
        contentItem: Row {  // qmllint disable deferred-property-id
            spacing: Theme.space2
            BodyText {
                anchors.verticalCenter: parent.verticalCenter
                width: Math.min(implicitWidth, 160)
                text: chip.name
                color: Theme.accentText
                wrapMode: Text.NoWrap
                elide: Text.ElideMiddle
                Accessible.ignored: true
            }
            Icon {
                anchors.verticalCenter: parent.verticalCenter
                width: 16
                height: 16
                name: "close"
                color: Theme.accentText
            }
        }
    }
}
