import QtQuick
import QtQuick.Controls.Basic
import Murvane

// The app's one window; its whole content is the main screen.
ApplicationWindow {
    id: window
    width: 390
    height: 844
    visible: true
    title: "Murvane"

    ContentView {
        anchors.fill: parent
    }
}
