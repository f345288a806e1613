import QtQuick

// One of the layers that make a soft shadow below a card.
Rectangle {
    required property int spread

    z: -1
    anchors.fill: parent
    anchors.margins: -spread
    anchors.topMargin: 3 - spread
    anchors.bottomMargin: -3 - spread
    radius: Theme.cardRadius + spread
    color: Theme.shadow
}
