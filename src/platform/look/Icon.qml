import QtQuick

// An icon of the theme, in one colour. Without a colour it has its own.
Image {
    id: icon

    required property string name
    property color color: Theme.text
    property bool tinted: true

    width: Theme.iconSize
    height: Theme.iconSize
    sourceSize.width: Math.ceil(width * Screen.devicePixelRatio)
    sourceSize.height: Math.ceil(height * Screen.devicePixelRatio)
    source: name === "" ? "" : "image://icon/" + name + (tinted ? "/" + hex(color) : "")
    fillMode: Image.PreserveAspectFit
    // What points the way points the other way where that begins at the right.
    mirror: LayoutMirroring.enabled && (name === "back" || name === "chevron")

    function hex(value: color): string {
        return value.toString().slice(-6);
    }
}
