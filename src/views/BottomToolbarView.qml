pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Controls.Basic
import Murvane

// The row of controls at the foot of the screen: scheme toggle, sort by
// status, the menu, sort by text and share. It draws and reports; the
// screen acts.
Item {
    id: root

    // Turns the moon over; flipped by the screen on each scheme toggle.
    property bool rotateMoon

    signal toggleColorScheme
    signal sortToggle
    signal sortByText
    signal rateApp
    signal showTutorial
    signal resetDots
    signal chooseTheme(string rawValue)
    signal share

    readonly property Item menuButton: menuButton
    readonly property ToolbarMenu menu: menu
    readonly property ToolbarMenu themesMenu: themesMenu

    implicitHeight: 44

    // Five equal cells, each control centred in its own.
    Row {
        id: cells

        readonly property real cellWidth: width / 5

        anchors.fill: parent

        SymbolButton {
            id: moon

            objectName: "schemeButton"
            width: cells.cellWidth
            height: cells.height
            text: "Dark or Light"
            symbol: "moonphase.waxing.gibbous.inverse"
            pointSize: 16
            onClicked: root.toggleColorScheme()

            contentItem: Item {
                SymbolIcon {
                    anchors.centerIn: parent
                    name: moon.symbol
                    pointSize: moon.pointSize
                    color: moon.color
                    rotation: root.rotateMoon ? 180 : 0

                    Behavior on rotation {
                        NumberAnimation {
                            duration: 350
                            easing.type: Easing.InOutQuad
                        }
                    }
                }
            }
        }

        SymbolButton {
            objectName: "sortStatusButton"
            width: cells.cellWidth
            height: cells.height
            text: "Sort by Status"
            symbol: "arrow.up.arrow.down"
            pointSize: 16
            onClicked: root.sortToggle()
        }

        AbstractButton {
            id: menuButton

            objectName: "menuButton"
            width: cells.cellWidth
            height: cells.height
            focusPolicy: Qt.TabFocus
            text: "Menu"
            Accessible.name: text
            Accessible.onPressAction: menuButton.clicked()
            opacity: down ? 0.3 : 1
            onClicked: {
                menu.x = (width - menu.width) / 2;
                menu.y = -menu.height - 6;
                menu.open();
            }

            contentItem: Item {
                StaticGlobeView {
                    anchors.centerIn: parent
                    isDark: Appearance.isDark
                    Accessible.ignored: true
                }
            }
            background: Item {
                FocusRing {
                    shown: menuButton.visualFocus
                }
            }

            ToolbarMenu {
                id: menu

                objectName: "toolbarMenu"
                // Not drawn: the name screen readers hear.
                title: "Menu"

                ToolbarMenuItem {
                    objectName: "rateItem"
                    text: "Rate Murvane!"
                    symbol: "star"
                    onTriggered: root.rateApp()
                }
                ToolbarMenuItem {
                    objectName: "tutorialItem"
                    text: "Tutorial"
                    symbol: "questionmark.circle"
                    onTriggered: root.showTutorial()
                }
                ToolbarMenuItem {
                    objectName: "resetDotsItem"
                    text: "Reset Dots"
                    symbol: "largecircle.fill.circle"
                    onTriggered: root.resetDots()
                }
                ToolbarMenu {
                    id: themesMenu

                    objectName: "themesMenu"
                    title: "Themes"
                    symbol: "paintpalette"

                    Instantiator {
                        model: Appearance.themeMenu
                        delegate: ToolbarMenuItem {
                            required property var modelData

                            objectName: "theme_" + modelData.rawValue
                            text: modelData.label
                            onTriggered: root.chooseTheme(modelData.rawValue)
                        }
                        onObjectAdded: (index, object) => themesMenu.insertItem(index, object)
                        onObjectRemoved: (index, object) => themesMenu.removeItem(object)
                    }
                }
            }
        }

        AbstractButton {
            id: abc

            objectName: "sortTextButton"
            width: cells.cellWidth
            height: cells.height
            focusPolicy: Qt.TabFocus
            text: "ABC"
            Accessible.name: "Sort by Text"
            Accessible.onPressAction: abc.clicked()
            opacity: down ? 0.3 : 1
            onClicked: root.sortByText()

            contentItem: Text {
                text: abc.text
                color: Appearance.foreground
                font.pixelSize: 18
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
            }
            background: Item {
                FocusRing {
                    shown: abc.visualFocus
                }
            }
        }

        SymbolButton {
            objectName: "shareButton"
            width: cells.cellWidth
            height: cells.height
            text: "Share"
            symbol: "square.and.arrow.up"
            pointSize: 16
            onClicked: root.share()
        }
    }
}
