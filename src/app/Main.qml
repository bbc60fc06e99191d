import QtQuick
import QtQuick.Controls.Basic
import Murvane

// The app's one window; its whole content is the main screen. The review
// prompt floats over it when the app asks for a rating. Shown from C++,
// which decides its size and place (WindowPlacement).
ApplicationWindow {
    id: window
    width: 390
    height: 844
    title: "Murvane"

    required property ScreenState screen

    ContentView {
        anchors.fill: parent
        screen: window.screen
    }

    RatingPromptView {
    }
}
