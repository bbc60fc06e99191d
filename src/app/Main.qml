import QtQuick
import QtQuick.Controls.Basic
import Murvane

// The app's one window; its whole content is the main screen. The review
// prompt floats over it when the app asks for a rating, and the store's
// notice when saving fails or stored data could not be read. Shown from
// C++, which decides its size and place (WindowPlacement).
ApplicationWindow {
    id: window

    // Given by the app at start; null in tests without a store.
    property StoreStatus storeStatus: null
    width: 390
    height: 844
    title: "Murvane"

    required property ScreenState screen

    ContentView {
        anchors.fill: parent
        screen: window.screen
    }

    // Made when the app first asks for a rating, not at start, and kept, so
    // it can fade out when it closes.
    Loader {
        id: ratingPrompt

        anchors.fill: parent
        active: false
        sourceComponent: RatingPromptView {}
        Component.onCompleted: ratingPrompt.active = RatingPrompt.shown

        Connections {
            target: RatingPrompt

            function onShownChanged() {
                if (RatingPrompt.shown)
                    ratingPrompt.active = true;
            }
        }
    }

    StoreNoticeView {
        status: window.storeStatus
    }
}
