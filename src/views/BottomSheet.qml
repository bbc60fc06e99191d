import QtQuick
import QtQuick.Controls.Basic

// A modal sheet that slides up from the bottom of its parent, `gap` above
// the bottom edge, and back down when it closes.
Popup {
    id: root

    property real gap: 0
    // What screen readers call the sheet (Qt 6.4 names no popup itself).
    property string accessibleName
    property int closeDuration: 250
    readonly property real shownY: parent ? parent.height - height - gap : 0
    // How far below its place the sheet is drawn, while it slides.
    property real slide: 0
    readonly property real hiddenSlide: parent ? parent.height - shownY : 0

    // The sheet stays in its place and what it draws slides: a popup moved
    // past the window's edge would be cut down to fit, and grow back.
    property Translate sliding: Translate {
        y: root.slide
    }
    Component.onCompleted: {
        contentItem.parent.transform = [sliding]; // qmllint disable property
        contentItem.parent.Accessible.name = Qt.binding(() => root.accessibleName);
    }

    y: shownY
    padding: 0
    modal: true

    enter: Transition {
        NumberAnimation {
            property: "slide"
            from: root.hiddenSlide
            to: 0
            duration: 300
            easing.type: Easing.OutCubic
        }
    }
    exit: Transition {
        NumberAnimation {
            property: "slide"
            to: root.hiddenSlide
            duration: root.closeDuration
            easing.type: Easing.InCubic
        }
    }
}
