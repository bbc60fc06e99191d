pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Controls.Basic
import Murvane

// One item of the shown list (see ItemRowContent). Swiping from the leading
// edge pins, from the trailing edge deletes; a swipe past half the row (or a
// quick flick) performs the action. The row decides nothing: it reports
// taps and swipes through its signals.
SwipeDelegate {
    id: row

    property string itemText
    property bool isDone
    property bool isPinned
    // Accumulated turn of the done-marker, in degrees.
    property real rotationAngle
    property bool animatesTurns: true

    // A tap on the marker emits tapDone, then toggleState.
    signal tapDone
    signal toggleState
    signal editingAction
    signal pinAction
    signal deleteAction

    readonly property ItemRowContent content: contentItem as ItemRowContent

    function hits(target: Item): bool {
        const p = target.mapFromItem(row, pressX, pressY);
        return p.x >= 0 && p.y >= 0 && p.x < target.width && p.y < target.height;
    }

    hoverEnabled: false
    focusPolicy: Qt.NoFocus
    // The list's row insets; the list may override them.
    leftPadding: 12
    rightPadding: 12
    topPadding: 1
    bottomPadding: 1
    Accessible.name: itemText
    Accessible.description: AccessibleText.rowState(isDone, isPinned)
    Accessible.onPressAction: row.editingAction()

    background: Item {}

    contentItem: ItemRowContent {
        itemText: row.itemText
        isDone: row.isDone
        isPinned: row.isPinned
        rotationAngle: row.rotationAngle
        animatesTurns: row.animatesTurns
        onMarkerActivated: {
            row.tapDone();
            row.toggleState();
        }
    }

    // The swipe actions, for screen readers, which cannot swipe: two
    // buttons over the row that draw nothing.
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

    // Taps are told apart by where the press was, so the row itself keeps
    // every press and can still be swiped or held from anywhere.
    onClicked: {
        if (!content)
            return;
        if (hits(content.marker)) {
            row.tapDone();
            row.toggleState();
        } else if (hits(content.textBox)) {
            row.editingAction();
        }
    }

    swipe.left: SwipeActionView {
        width: row.width
        height: row.height
        revealed: row.swipe.position * row.width
        leading: true
        color: Appearance.theme.pinSwipe
        symbol: row.isPinned ? "pin.fill" : "pin"
        title: "Pin"
    }

    swipe.right: SwipeActionView {
        width: row.width
        height: row.height
        revealed: -row.swipe.position * row.width
        leading: false
        color: SystemColors.red
        symbol: "trash"
        title: "Delete"
    }

    swipe.onCompleted: {
        if (swipe.position > 0) {
            swipe.close();
            row.pinAction();
        } else {
            // The row normally leaves the list here; should it stay, it
            // closes once the list has had its say.
            row.deleteAction();
            closeAfterDelete.start();
        }
    }

    Timer {
        id: closeAfterDelete

        interval: 300
        onTriggered: row.swipe.close()
    }
}
