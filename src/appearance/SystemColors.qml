pragma Singleton

import QtQuick
import Murvane

// The platform's own colours, the same under every theme: labels, the
// system blue and red, separators, pressed states and the backgrounds of
// alerts, sheets and menus, each in the form for the current scheme.
QtObject {
    readonly property bool dark: Appearance.isDark

    readonly property color label: dark ? "white" : "black"
    readonly property color secondaryLabel: dark ? Qt.rgba(235 / 255, 235 / 255, 245 / 255, 0.6)
                                                 : Qt.rgba(60 / 255, 60 / 255, 67 / 255, 0.6)
    readonly property color background: dark ? "black" : "white"
    // A page presented over the screen, such as a sheet.
    readonly property color elevatedBackground: dark ? "#1c1c1e" : "white"
    readonly property color blue: dark ? "#0a84ff" : "#007aff"
    readonly property color red: dark ? "#ff453a" : "#ff3b30"
    readonly property color placeholder: dark ? Qt.rgba(0.92, 0.92, 0.96, 0.3) : Qt.rgba(0.24, 0.24, 0.26, 0.3)
    readonly property color separator: dark ? Qt.rgba(0.33, 0.33, 0.35, 0.6) : Qt.rgba(0.24, 0.24, 0.26, 0.29)
    readonly property color hairline: dark ? Qt.rgba(1, 1, 1, 0.15) : Qt.rgba(0, 0, 0, 0.15)
    readonly property color pressed: dark ? Qt.rgba(1, 1, 1, 0.1) : Qt.rgba(0, 0, 0, 0.08)
    readonly property color menuPressed: dark ? Qt.rgba(1, 1, 1, 0.12) : Qt.rgba(0, 0, 0, 0.08)
    readonly property color alertBackground: dark ? Qt.rgba(0.17, 0.17, 0.18, 0.98) : Qt.rgba(0.96, 0.96, 0.96, 0.98)
    readonly property color sheetBackground: dark ? Qt.rgba(0.17, 0.17, 0.18, 0.98) : Qt.rgba(0.98, 0.98, 0.98, 0.98)
    readonly property color sheetButtonPressed: dark ? Qt.rgba(0.24, 0.24, 0.25, 0.98) : Qt.rgba(0.9, 0.9, 0.9, 0.98)
    readonly property color menuBackground: dark ? Qt.rgba(0.17, 0.17, 0.18, 0.98) : Qt.rgba(0.97, 0.97, 0.97, 0.98)
}
