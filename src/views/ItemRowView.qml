import QtQuick
import QtQuick.Controls.Basic
import Murvane

// One item of the shown list (see ItemRowContent). Swiping from the leading
// edge uncovers "Pin", from the trailing edge "Delete": a short swipe leaves
// the button open for a tap, a long one or a quick flick performs it
// (SwipeGesture decides which). The row decides nothing else: it reports
// taps and swipes through its signals.
Item {
    id: row

    // The shown item's id, so the list can follow its row.
    property string itemId
    // The one script-engine copy of the text; the content hands it straight
    // to its text item.
    property string itemText
    property bool isDone
    property bool isPinned
    // Accumulated turn of the done-marker, in degrees.
    property real rotationAngle
    property bool animatesTurns: true
    // The next changes of isDone fade in (see ItemRowContent).
    property bool animatesStates: false
    property bool swipeEnabled: true
    // How far the row is pushed aside; positive uncovers the leading button.
    property real swipeOffset: 0
    readonly property bool swipeOpen: swipeOffset !== 0
    // The row's insets in the list.
    property alias leftPadding: face.leftPadding
    property alias rightPadding: face.rightPadding
    property alias topPadding: face.topPadding
    property alias bottomPadding: face.bottomPadding
    property alias background: face.background
    readonly property ItemRowContent content: face.contentItem as ItemRowContent
    property int slideDuration: 250
    // Set by a swipe performed in full until the row has slid out.
    property string pendingAction
    // Whether there is a row above, and below, to move past.
    property bool canMoveUp: true
    property bool canMoveDown: true

    // A tap on the marker emits tapDone, then toggleState.
    signal tapDone
    signal toggleState
    signal editingAction
    signal pinAction
    signal deleteAction
    // One place up (-1) or down (1).
    signal moveAction(int by)
    signal pressAndHold
    // A swipe left a button open, waiting for a tap.
    signal swipeOpened

    function closeSwipe(animated: bool) {
        pendingAction = "";
        if (animated) {
            settleTo(0);
        } else {
            settle.stop();
            swipeOffset = 0;
        }
    }

    // After a reorder the row shows another item: it slides from where that
    // item stood, `dy` away, or fades in when it stood out of sight (NaN).
    function slideFrom(dy: real) {
        if (isNaN(dy)) {
            slide.stop();
            face.y = 0;
            fadeIn.restart();
        } else {
            slide.from = dy;
            slide.restart();
        }
    }

    function settleTo(offset: real) {
        settle.stop();
        settle.to = offset;
        settle.start();
    }

    // Slides out to the edge, then performs.
    function perform(action: string) {
        pendingAction = action;
        settleTo(action === "pin" ? width : -width);
    }

    function release(velocity: real) {
        switch (SwipeGesture.rest(swipeOffset, velocity, width)) {
        case SwipeGesture.LeadingAction:
            perform("pin");
            break;
        case SwipeGesture.TrailingAction:
            perform("delete");
            break;
        case SwipeGesture.LeadingOpen:
            settleTo(SwipeGesture.buttonWidth);
            swipeOpened();
            break;
        case SwipeGesture.TrailingOpen:
            settleTo(-SwipeGesture.buttonWidth);
            swipeOpened();
            break;
        default:
            settleTo(0);
        }
    }

    function hits(target: Item, point: point): bool {
        const p = target.mapFromItem(row, point.x, point.y);
        return p.x >= 0 && p.y >= 0 && p.x < target.width && p.y < target.height;
    }

    // An open row takes a tap on its button, and closes on any other.
    function tapAt(point: point) {
        if (swipeOffset > 0) {
            if (point.x < swipeOffset)
                perform("pin");
            else
                closeSwipe(true);
        } else if (swipeOffset < 0) {
            if (point.x >= width + swipeOffset)
                perform("delete");
            else
                closeSwipe(true);
        } else if (content && hits(content.marker, point)) {
            tapDone();
            toggleState();
        } else if (content && hits(content.textBox, point)) {
            editingAction();
        }
    }

    implicitWidth: face.implicitWidth
    implicitHeight: face.implicitHeight
    Accessible.role: Accessible.ListItem
    Accessible.name: itemText
    Accessible.description: AccessibleText.rowState(isDone, isPinned)
    Accessible.onPressAction: row.editingAction()

    // The buttons exist only while uncovered, so a resting row stays light.
    Loader {
        id: pinButton

        anchors.fill: parent
        active: row.swipeOffset > 0

        sourceComponent: SwipeActionView {
            buttonWidth: SwipeGesture.buttonWidth
            leading: true
            color: Appearance.theme.pinSwipe
            title: "Pin"
        }
    }
    Binding {
        target: pinButton.item
        when: pinButton.item !== null
        property: "revealed"
        value: row.swipeOffset
    }
    Binding {
        target: pinButton.item
        when: pinButton.item !== null
        property: "symbol"
        value: row.isPinned ? "pin.fill" : "pin"
    }

    Loader {
        id: deleteButton

        anchors.fill: parent
        active: row.swipeOffset < 0

        sourceComponent: SwipeActionView {
            buttonWidth: SwipeGesture.buttonWidth
            leading: false
            color: SystemColors.red
            symbol: "trash"
            title: "Delete"
        }
    }
    Binding {
        target: deleteButton.item
        when: deleteButton.item !== null
        property: "revealed"
        value: -row.swipeOffset
    }

    Control {
        id: face

        x: row.swipeOffset
        width: row.width
        // The row speaks for its face.
        Accessible.ignored: true
        height: row.height
        hoverEnabled: false
        focusPolicy: Qt.NoFocus
        leftPadding: 12
        rightPadding: 12
        topPadding: 1
        bottomPadding: 1

        background: Item {}

        contentItem: ItemRowContent {
            itemText: row.itemText
            isDone: row.isDone
            isPinned: row.isPinned
            rotationAngle: row.rotationAngle
            animatesTurns: row.animatesTurns
            animatesStates: row.animatesStates
            onMarkerActivated: {
                row.tapDone();
                row.toggleState();
            }
        }
    }

    // The swipe actions and the drag's moves, for screen readers, which
    // cannot swipe or drag: buttons over the row that draw nothing.
    Item {
        anchors.fill: parent
        Accessible.role: Accessible.Button
        Accessible.name: AccessibleText.pinAction(row.isPinned)
        Accessible.onPressAction: row.pinAction()
    }
    Item {
        anchors.fill: parent
        Accessible.role: Accessible.Button
        Accessible.name: "Delete"
        Accessible.onPressAction: row.deleteAction()
    }
    Item {
        anchors.fill: parent
        enabled: row.canMoveUp
        Accessible.role: Accessible.Button
        Accessible.name: "Move Up"
        Accessible.onPressAction: row.moveAction(-1)
    }
    Item {
        anchors.fill: parent
        enabled: row.canMoveDown
        Accessible.role: Accessible.Button
        Accessible.name: "Move Down"
        Accessible.onPressAction: row.moveAction(1)
    }

    NumberAnimation {
        id: settle

        target: row
        property: "swipeOffset"
        duration: 200
        easing.type: Easing.OutCubic
        onFinished: {
            const action = row.pendingAction;
            row.pendingAction = "";
            if (action === "pin") {
                row.pinAction();
                row.settleTo(0);
            } else if (action === "delete") {
                // The row normally leaves the list here; should it stay, it
                // closes once the list has had its say.
                row.deleteAction();
                closeAfterDelete.start();
            }
        }
    }

    NumberAnimation {
        id: slide

        target: face
        property: "y"
        to: 0
        duration: row.slideDuration
        easing.type: Easing.InOutQuad
    }

    NumberAnimation {
        id: fadeIn

        target: face
        property: "opacity"
        from: 0
        to: 1
        duration: row.slideDuration
        easing.type: Easing.InOutQuad
    }

    Timer {
        id: closeAfterDelete

        interval: 300
        onTriggered: row.closeSwipe(true)
    }

    // Taps are told apart by where they land, so the row keeps every press
    // and can still be swiped or held from anywhere.
    TapHandler {
        gesturePolicy: TapHandler.DragThreshold
        onTapped: eventPoint => row.tapAt(eventPoint.position)
        onLongPressed: {
            if (!row.swipeOpen)
                row.pressAndHold();
        }
    }

    DragHandler {
        id: swipe

        property real startOffset: 0
        property real velocity: 0

        target: null
        enabled: row.swipeEnabled
        xAxis.enabled: true
        yAxis.enabled: false
        // Once swiping, the list does not take the stroke over to scroll.
        grabPermissions: PointerHandler.CanTakeOverFromItems | PointerHandler.CanTakeOverFromHandlersOfDifferentType
        onActiveChanged: {
            if (active) {
                settle.stop();
                row.pendingAction = "";
                startOffset = row.swipeOffset;
                velocity = 0;
            } else {
                row.release(velocity);
            }
        }
        onTranslationChanged: {
            if (!active)
                return;
            row.swipeOffset = Math.max(-row.width, Math.min(row.width, startOffset + translation.x));
            velocity = centroid.velocity.x;
        }
    }
}
