import QtQuick
import Pellumar.Look

// One star of a rating.
PlainButton {
    id: button

    // Its position, from 0.
    required property int tag

    text: qsTr("%Ln stars", "", tag + 1)
    width: 52
    height: 52

    background: Item {
        FocusRing { control: button; radius: width / 2 }
    }
    contentItem: Item {  // qmllint disable deferred-property-id
        id: star

        objectName: "starImageViews"
        property string image: "starDeselected"

        Icon {
            anchors.centerIn: parent
            width: 40
            height: 40
            name: "starDeselected"
            color: Theme.textSecondary
        }
        Icon {
            anchors.centerIn: parent
            width: 40
            height: 40
            name: "starSelected"
            color: Theme.accentText
            opacity: star.image === name ? 1 : 0
            Behavior on opacity { NumberAnimation { duration: Theme.still ? 0 : 100 } }
        }
    }
}
