import QtQuick
import Pellumar.Documents
import Pellumar.Look

// What stands in place of a list that is empty. A folder that is read at once is not spoken of.
Column {
    id: state

    required property UIDocumentPickerViewController controller
    readonly property bool isLoading: controller.model.isLoading
    property bool isSlow: false

    spacing: 0
    onIsLoadingChanged: isSlow = false

    Timer {
        interval: 400
        running: state.isLoading
        onTriggered: state.isSlow = true
    }
    EmptyState {
        width: state.width
        visible: !state.isLoading || state.isSlow
        iconName: "folder"
        text: state.isLoading ? qsTr("Reading the folder…")
            : state.controller.model.isUnreadable ? qsTr("This folder cannot be read")
            : state.controller.picksFolder ? qsTr("There are no folders in this one")
                                           : qsTr("Nothing to choose here")
    }
    NotShownNote {
        width: state.width
        visible: state.controller.model.notShown !== ""
        controller: state.controller
    }
}
