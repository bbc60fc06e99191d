import QtQuick
import Murvane

// Where the keyboard is: a rounded outline in the theme's colour just
// outside its parent, while `shown`. It takes no input and screen readers
// do not see it.
Rectangle {
    property bool shown

    anchors.fill: parent
    anchors.margins: -2
    radius: 8
    color: "transparent"
    border.width: 2
    border.color: Appearance.pick(Appearance.theme.completeFillDark, Appearance.theme.completeFillLight)
    visible: shown
    Accessible.ignored: true
}
