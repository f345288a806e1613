import QtQuick
import Pellumar.App
import Pellumar.Look

Item {
    id: root

    required property StarEvaluationView controller

    Row {
        anchors.centerIn: parent
        spacing: Theme.space1

        StarButton { id: star0; tag: 0; onClicked: root.controller.starSelected(star0) }
        StarButton { id: star1; tag: 1; onClicked: root.controller.starSelected(star1) }
        StarButton { id: star2; tag: 2; onClicked: root.controller.starSelected(star2) }
        StarButton { id: star3; tag: 3; onClicked: root.controller.starSelected(star3) }
        StarButton { id: star4; tag: 4; onClicked: root.controller.starSelected(star4) }
    }
}
