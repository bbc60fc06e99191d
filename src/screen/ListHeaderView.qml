pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Controls.Basic
import Murvane

// The strip of list chips under the navigation bar: one chip per list, in
// list order, keyed by index; the selected one sits in a glowing capsule.
// It scrolls sideways and brings the selected chip to the middle when asked.
Item {
    id: root

    // The store whose list names the chips show.
    property ListItems store: null
    property int selectedIndex: -1
    // How long the capsule takes to reach a newly selected chip, in ms
    // (ease-in-out); 0 jumps. Read when the selection changes.
    property int selectionDuration: 0

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

    // The chip the capsule sits under: it lags selectedIndex only while the
    // change is being handled, so the capsule starts where it was.
    property int shownIndex: -1
    property Item selectedChip: null

    function noteChip(chip) {
        if (chip.selected)
            selectedChip = chip;
        else if (selectedChip === chip)
            selectedChip = null;
    }

    // The capsule sets off from where it is now (mid-way, if it is still
    // travelling) towards the new chip.
    onSelectedIndexChanged: {
        chips.forceLayout();
        const fromX = capsule.x;
        const fromWidth = capsule.width;
        const wasShown = selectedChip !== null;
        travel.stop();
        shownIndex = selectedIndex;
        capsule.fromX = fromX;
        capsule.fromWidth = fromWidth;
        capsule.progress = wasShown && selectedChip !== null && selectionDuration > 0 ? 0 : 1;
        if (capsule.progress < 1) {
            travel.duration = selectionDuration;
            travel.start();
        }
    }
    Component.onCompleted: shownIndex = selectedIndex

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

        // The same shadow under the capsule: the strip casts it as a whole,
        // so it falls outside the strip's scrolling clip. Cut at the ends,
        // where the capsule scrolls out of sight.
        Item {
            y: -20
            width: parent.width
            height: parent.height + 40
            clip: true
            z: -1

            Item {
                x: capsule.x - flick.contentX
                y: capsule.y + 20
                width: capsule.width
                height: capsule.height
                visible: capsule.visible

                RoundedShadow {
                    cornerRadius: parent.height / 2
                    blur: 5
                    offsetY: 2
                    color: Qt.rgba(0, 0, 0, 0.2 * Math.max(capsule.color.a, 0.5))
                }
            }
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

            // The selected chip's capsule: its fill, inner stroke and accent
            // glow. It travels to the next selected chip rather than
            // appearing there, and follows its chip's size as it is renamed.
            Rectangle {
                id: capsule

                objectName: "capsule"
                readonly property Item chip: root.selectedChip
                property real fromX: 0
                property real fromWidth: 0
                property real progress: 1

                visible: chip !== null
                x: chip ? fromX + (chip.x - fromX) * progress : 0
                width: chip ? fromWidth + (chip.width - fromWidth) * progress : 0
                y: chip ? chip.y : 0
                height: chip ? chip.height : 0
                radius: height / 2
                color: Appearance.pick(Appearance.theme.selectedHeaderBackgroundDark,
                                       Appearance.theme.selectedHeaderBackgroundLight)
                border.width: Appearance.theme.selectedHeaderStrokeWidth
                border.color: Appearance.pick(Appearance.theme.selectedHeaderStrokeColorDark,
                                              Appearance.theme.selectedHeaderStrokeColorLight)

                NumberAnimation {
                    id: travel

                    target: capsule
                    property: "progress"
                    from: 0
                    to: 1
                    easing.type: Easing.Bezier
                    easing.bezierCurve: [0.42, 0, 0.58, 1, 1, 1]
                }

                RoundedShadow {
                    cornerRadius: parent.height / 2
                    blur: 6
                    // Accent at 0.6, through the capsule's own opacity.
                    color: {
                        const accent = Appearance.pick(Appearance.theme.accentDark, Appearance.theme.accentLight);
                        return Qt.rgba(accent.r, accent.g, accent.b, 0.6 * Math.max(capsule.color.a, 0.5));
                    }
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

                    model: ListChipsModel {
                        store: root.store
                    }

                    // A tab of the strip to screen readers; the screen, not
                    // the button, keeps which one is selected.
                    TabButton {
                        id: chip

                        required property int index
                        required property string name
                        readonly property bool selected: index === root.shownIndex

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
                        text: name
                        Accessible.name: AccessibleText.listName(name)
                        Accessible.selectable: true
                        Accessible.selected: selected
                        Accessible.onPressAction: chip.clicked()
                        onClicked: root.chipTapped(index)
                        onSelectedChanged: root.noteChip(chip)
                        Component.onCompleted: root.noteChip(chip)
                        Component.onDestruction: {
                            if (root.selectedChip === chip)
                                root.selectedChip = null;
                        }
                        // A chip reached from the keyboard scrolls into view.
                        onVisualFocusChanged: if (visualFocus) root.flickable.contentX = Math.max(0,
                            Math.min(x + width / 2 - flick.width / 2, flick.contentWidth - flick.width))

                        FocusRing {
                            radius: height / 2
                            shown: chip.visualFocus
                        }

                        font.pixelSize: 15
                        contentItem: Text {
                            text: chip.text
                            color: Appearance.foreground
                            font: chip.font
                            verticalAlignment: Text.AlignVCenter

                            // The strip's shadow falls from its letters too.
                            TextShadow {
                                text: chip.text
                                font: chip.font
                                sigma: 5
                                color: Qt.rgba(0, 0, 0, 0.2)
                                x: -margin
                                y: (parent.height - height) / 2 + 2
                            }
                        }

                        background: Item {}
                    }
                }
            }
        }
    }
}
