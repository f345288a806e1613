import QtQuick

// One line that is typed without being seen, until its button shows it.
InputField {
    id: field

    // SecretAccessible speaks for what has this.
    readonly property bool isSecret: true
    // What there is to say of it, to who does not see it.
    property string description
    property bool isShown: false

    leftPadding: LayoutMirroring.enabled ? Theme.touchTarget : Theme.space3
    rightPadding: LayoutMirroring.enabled ? Theme.space3 : Theme.touchTarget
    echoMode: isShown ? TextInput.Normal : TextInput.Password
    inputMethodHints: Qt.ImhHiddenText | Qt.ImhSensitiveData | Qt.ImhNoPredictiveText
                      | Qt.ImhNoAutoUppercase
    Accessible.passwordEdit: true

    IconButton {
        objectName: "showButton"
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        iconName: field.isShown ? "eyeClosed" : "eye"
        color: Theme.textSecondary
        text: field.isShown ? qsTr("Hide the password") : qsTr("Show the password")
        onClicked: field.isShown = !field.isShown
    }
}
