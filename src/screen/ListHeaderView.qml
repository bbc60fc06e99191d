pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Controls.Basic
import Murvane

// The strip of list chips under the navigation bar: one chip per list, in
// list order, keyed by index; the selected one sits in a glowing capsule.
// It scrolls sideways and brings the selected chip to the middle when asked.
Item {
    id: root

    property var listNames: []
    property int selectedIndex: -1

    signal chipTapped(int index)

    readonly property bool dark: Appearance.isDark
    readonly property Flickable flickable: flick

    // Centres the selected chip, animated over `durationMs` (ease-in-out);
    // 0 jumps. A later request replaces a running one.
    function scrollToSelected(durationMs) {
        chips.forceLayout();
        const chip = repeater.itemAt(selectedIndex);
        const maxX = Math.max(0, flick.contentWidth - flick.width);
        const target = chip ? Math.min(maxX, Math.max(0, chip.x + chip.width / 2 - flick.width / 2)) : flick.contentX;
        scroll.stop();
        if (durationMs <= 0) {
            flick.contentX = target;
        } else {
            scroll.to = target;
            scroll.duration = durationMs;
            scroll.start();
        }
    }

    implicitHeight: 44

    // The first time the strip has a width, the selected chip is centred.
    property bool centredOnce: false
    onWidthChanged: {
        if (!centredOnce && width > 0) {
            centredOnce = true;
            scrollToSelected(0);
        }
    }

    Rectangle {
        id: strip

        x: 6
        width: parent.width - 12
        height: 44
        radius: 20
        border.width: 0.7
        border.color: Appearance.pick(Appearance.theme.outlineDark, Appearance.theme.outlineLight)

        RoundedShadow {
            cornerRadius: 20
            blur: 5
            offsetY: 2
            // Black at 0.2, through the strip's mostly clear fill.
            color: Qt.rgba(0, 0, 0, 0.2 * 0.5)
        }

        // Lighter in the middle than at the ends.
        readonly property color base: root.dark ? Qt.rgba(0, 0, 0, 0.6) : Qt.rgba(1, 1, 1, 0.65)
        gradient: Gradient {
            orientation: Gradient.Horizontal
            GradientStop {
                position: 0
                color: Qt.rgba(strip.base.r, strip.base.g, strip.base.b, strip.base.a * 0.6)
            }
            GradientStop {
                position: 0.5
                color: Qt.rgba(strip.base.r, strip.base.g, strip.base.b, strip.base.a * 0.3)
            }
            GradientStop {
                position: 1
                color: Qt.rgba(strip.base.r, strip.base.g, strip.base.b, strip.base.a * 0.6)
            }
        }

        Flickable {
            id: flick

            objectName: "headerFlickable"
            anchors.fill: parent
            contentWidth: chips.width
            contentHeight: height
            flickableDirection: Flickable.HorizontalFlick
            clip: true

            NumberAnimation {
                id: scroll

                target: flick
                property: "contentX"
                // The ease-in-out curve of the phone's animations.
                easing.type: Easing.Bezier
                easing.bezierCurve: [0.42, 0, 0.58, 1, 1, 1]
            }

            // A mouse wheel turned either way, or a touchpad, scrolls the
            // strip sideways.
            WheelHandler {
                target: null
                enabled: flick.contentWidth > flick.width
                onWheel: event => {
                    const pixels = Math.abs(event.pixelDelta.x) + Math.abs(event.pixelDelta.y) > 0;
                    const dx = pixels ? event.pixelDelta.x : event.angleDelta.x / 3;
                    const dy = pixels ? event.pixelDelta.y : event.angleDelta.y / 3;
                    const delta = Math.abs(dx) > Math.abs(dy) ? dx : dy;
                    scroll.stop();
                    flick.contentX = Math.max(0, Math.min(flick.contentWidth - flick.width, flick.contentX - delta));
                }
            }

            Row {
                id: chips

                height: parent.height
                leftPadding: 6
                rightPadding: 6
                spacing: 8

                Repeater {
                    id: repeater

                    model: root.listNames

                    // A tab of the strip to screen readers; the screen, not
                    // the button, keeps which one is selected.
                    TabButton {
                        id: chip

                        required property int index
                        required property string modelData
                        readonly property bool selected: index === root.selectedIndex

                        objectName: "chip_" + index
                        checkable: false
                        autoExclusive: false
                        checked: selected
                        y: (chips.height - height) / 2
                        focusPolicy: Qt.TabFocus
                        leftPadding: 14
                        rightPadding: 14
                        topPadding: 8
                        bottomPadding: 8
                        text: modelData
                        Accessible.name: AccessibleText.listName(modelData)
                        Accessible.selectable: true
                        Accessible.selected: selected
                        Accessible.onPressAction: chip.clicked()
                        onClicked: root.chipTapped(index)
                        // A chip reached from the keyboard scrolls into view.
                        onVisualFocusChanged: if (visualFocus) root.flickable.contentX = Math.max(0,
                            Math.min(x + width / 2 - flick.width / 2, flick.contentWidth - flick.width))

                        FocusRing {
                            radius: height / 2
                            shown: chip.visualFocus
                        }

                        contentItem: Text {
                            text: chip.text
                            color: Appearance.foreground
                            font.pixelSize: 15
                            verticalAlignment: Text.AlignVCenter
                        }

                        // Only the selected chip has a background: the capsule,
                        // its inner stroke and the accent glow.
                        background: Rectangle {
                            visible: chip.selected
                            radius: height / 2
                            color: Appearance.pick(Appearance.theme.selectedHeaderBackgroundDark,
                                                   Appearance.theme.selectedHeaderBackgroundLight)
                            border.width: Appearance.theme.selectedHeaderStrokeWidth
                            border.color: Appearance.pick(Appearance.theme.selectedHeaderStrokeColorDark,
                                                          Appearance.theme.selectedHeaderStrokeColorLight)

                            RoundedShadow {
                                cornerRadius: parent.height / 2
                                blur: 6
                                // Accent at 0.6, through the capsule's own opacity.
                                color: {
                                    const accent = Appearance.pick(Appearance.theme.accentDark, Appearance.theme.accentLight);
                                    const fill = Appearance.pick(Appearance.theme.selectedHeaderBackgroundDark,
                                                                 Appearance.theme.selectedHeaderBackgroundLight);
                                    return Qt.rgba(accent.r, accent.g, accent.b, 0.6 * Math.max(fill.a, 0.5));
                                }
                            }
                        }
                    }
                }
            }
        }
    }
}
