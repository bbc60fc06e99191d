pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Controls.Basic
import Murvane

// The rows of the selected list, pinned first, on translucent bands with
// hairlines. Rows are dragged to a new place after a long press; the drop
// goes to the screen as a move from one displayed row to a gap between rows.
ListView {
    id: list

    required property ScreenState screen

    // The row being dragged and the gap it would drop into, or -1.
    property int dragFrom: -1
    property int dragGap: -1
    property real dragHeight: 0
    property real dragStartY: 0
    property real dragY: 0

    readonly property bool dark: Appearance.isDark
    readonly property color rowFill: dark ? Qt.rgba(0, 0, 0, 0.4 * 0.5) : Qt.rgba(0.95, 0.95, 0.95, 0.4 * 0.5)
    readonly property color divider: Appearance.pick(Appearance.theme.outlineDark, Appearance.theme.outlineLight)
    // The dividers are 0.05 pt lines: one pixel covered a twentieth.
    readonly property real dividerCoverage: 0.05
    // Rows moving to new places (a sort, a pin, a drop) and the rows they
    // pass take this long, ease-in-out.
    readonly property int moveDuration: 250
    // Where each shown row stood before a reorder too long to move row by
    // row, by item id, in content coordinates.
    property var placesBeforeReorder: ({})
    // The row whose swipe button stands open, if any.
    property ItemRowView openRow: null

    function closeOpenRow() {
        if (openRow)
            openRow.closeSwipe(true);
        openRow = null;
    }

    // Brings a row to the bottom of the visible area, without animation.
    function revealItem(itemId) {
        const row = screen.displayedItems.rowOf(itemId);
        if (row >= 0)
            positionViewAtIndex(row, ListView.End);
    }

    function beginDrag(index, rowHeight, pointerY) {
        dragFrom = index;
        dragGap = index;
        dragHeight = rowHeight;
        dragStartY = pointerY;
        dragY = pointerY;
        interactive = false;
    }

    function updateDrag(pointerY) {
        if (dragFrom < 0)
            return;
        dragY = pointerY;
        const from = itemAtIndex(dragFrom);
        if (!from)
            return;
        // The gap follows the dragged row's middle across the others' middles.
        const middle = from.y + from.height / 2 + (dragY - dragStartY);
        const under = indexAt(width / 2, middle);
        if (under < 0) {
            dragGap = middle < 0 ? 0 : count;
        } else {
            const other = itemAtIndex(under);
            dragGap = middle > other.y + other.height / 2 ? under + 1 : under;
        }
    }

    function endDrag(drop) {
        const from = dragFrom;
        const gap = dragGap;
        dragFrom = -1;
        dragGap = -1;
        interactive = true;
        autoScroll.stop();
        // A drop onto the row's own place is a move too; the store decides.
        if (drop && from >= 0 && gap >= 0)
            screen.rows.moveDisplayedRow(from, gap);
    }

    clip: true
    // One stop on the Tab chain; the arrows move between the rows.
    activeFocusOnTab: true
    Accessible.role: Accessible.List
    Accessible.name: "Items"
    model: screen.displayedItems
    boundsBehavior: Flickable.DragAndOvershootBounds
    // Rows are recycled while scrolling: making a row costs more than a frame.
    reuseItems: true
    cacheBuffer: 200

    ScrollBar.vertical: ScrollBar {}

    onMovementStarted: closeOpenRow()

    // While the keyboard is up, a tap anywhere on the list puts it away
    // (and reaches no row); drags still scroll.
    MouseArea {
        parent: list
        anchors.fill: parent
        z: 10
        enabled: list.screen.keyboardResponder.isKeyboardShown
        onClicked: list.screen.inputBar.newItemFieldIsFocused = false
    }

    // A long reorder arrives as one change that keeps the scroll position;
    // the rows in sight then slide from where their items stood, and those
    // that come from out of sight fade in.
    Connections {
        target: list.screen.displayedItems

        function onAboutToReorder() {
            const places = {};
            const children = list.contentItem.children;
            for (let i = 0; i < children.length; ++i) {
                const r = children[i] as ItemRowView;
                if (r && r.visible)
                    places[r.itemId] = r.y;
            }
            list.placesBeforeReorder = places;
        }
        function onReordered() {
            const places = list.placesBeforeReorder;
            list.placesBeforeReorder = {};
            const children = list.contentItem.children;
            for (let i = 0; i < children.length; ++i) {
                const r = children[i] as ItemRowView;
                if (!r || !r.visible || r.y + r.height < list.contentY || r.y > list.contentY + list.height)
                    continue;
                r.slideFrom(places[r.itemId] === undefined ? NaN : places[r.itemId] - r.y);
            }
        }
    }

    // While a row stands open, a press anywhere else on the list closes it
    // and does nothing more; presses on the open row reach it.
    MouseArea {
        parent: list
        anchors.fill: parent
        z: 9
        enabled: list.openRow !== null
        onPressed: mouse => {
            const open = list.openRow;
            const p = mapToItem(open, mouse.x, mouse.y);
            if (open && p.y >= 0 && p.y < open.height) {
                mouse.accepted = false;
                return;
            }
            list.closeOpenRow();
        }
    }

    // Scrolls while a dragged row is held near the top or bottom edge.
    Timer {
        id: autoScroll

        property real step: 0

        interval: 16
        repeat: true
        onTriggered: {
            const top = list.originY;
            const bottom = list.originY + Math.max(0, list.contentHeight - list.height);
            const next = Math.max(top, Math.min(bottom, list.contentY + step));
            list.dragStartY -= next - list.contentY;
            list.contentY = next;
            list.updateDrag(list.dragY);
        }
    }

    delegate: ItemRowView {
        id: row

        required property int index
        // Each role fills the row property of its name. Read through
        // `model`, they would run in the script engine and leave a string
        // for the collector on every row recycled while scrolling.
        required itemId
        required itemText
        required isDone
        required isPinned
        required rotationAngle

        readonly property bool dragged: list.dragFrom === index
        // How far the row steps aside to open the gap for a dragged row.
        readonly property real makeRoom: {
            if (list.dragFrom < 0 || dragged)
                return 0;
            if (index > list.dragFrom && index < list.dragGap)
                return -list.dragHeight;
            if (index < list.dragFrom && index >= list.dragGap)
                return list.dragHeight;
            return 0;
        }

        objectName: "itemRow_" + index
        // A recycled row starts closed and takes its new angle without a turn.
        ListView.onPooled: {
            row.closeSwipe(false);
            row.animatesTurns = false;
        }
        ListView.onReused: row.animatesTurns = true
        width: ListView.view.width
        animatesStates: list.screen.sortAndUndo.markingAll
        z: dragged ? 5 : 0
        scale: dragged ? 1.03 : 1
        swipeEnabled: list.dragFrom < 0
        canMoveUp: index > 0
        canMoveDown: index < list.count - 1
        slideDuration: list.moveDuration
        onSwipeOpened: {
            if (list.openRow !== row)
                list.closeOpenRow();
            list.openRow = row;
        }
        onSwipeOpenChanged: {
            if (!swipeOpen && list.openRow === row)
                list.openRow = null;
        }

        transform: Translate {
            y: row.dragged ? list.dragY - list.dragStartY : row.makeRoom

            Behavior on y {
                enabled: !row.dragged
                NumberAnimation {
                    duration: list.moveDuration
                    easing.type: Easing.InOutQuad
                }
            }
        }

        background: Item {
            Rectangle {
                anchors.fill: parent
                color: list.rowFill
            }
            // A lifted row is solid and casts a shadow, so the rows it
            // passes over do not show through it.
            Rectangle {
                anchors.fill: parent
                visible: row.dragged
                color: Appearance.pick(Appearance.theme.listRowBackgroundDark, Appearance.theme.listRowBackgroundLight)

                RoundedShadow {
                    blur: 8
                    offsetY: 3
                    color: Qt.rgba(0, 0, 0, 0.25)
                }
            }
            Rectangle {
                anchors.top: parent.top
                width: parent.width
                height: 1
                color: list.divider
                opacity: list.dividerCoverage
            }
            Rectangle {
                anchors.bottom: parent.bottom
                width: parent.width
                height: 1
                color: list.divider
                opacity: list.dividerCoverage
            }
            FocusRing {
                anchors.margins: 2
                shown: row.activeFocus
            }
        }

        onTapDone: list.screen.rows.turnDoneMarker(itemId)
        onToggleState: list.screen.rows.toggleState(itemId)
        onEditingAction: list.screen.rows.edit(itemId)
        onPinAction: list.screen.rows.togglePin(itemId)
        onDeleteAction: list.screen.rows.deleteItem(itemId)
        onMoveAction: by => list.screen.rows.moveRowBy(itemId, by)

        // The focused row's keys: Space, Enter, Delete, Ctrl+P, Alt+Up/Down.
        Keys.onPressed: event => {
            event.accepted = list.screen.keys.rowKey(event.key, event.modifiers, itemId);
        }

        onPressAndHold: {
            list.beginDrag(index, height, pointer.point.scenePosition.y);
        }

        // Follows the finger or mouse during a row drag without taking the
        // press from the row or the list.
        PointHandler {
            id: pointer

            onPointChanged: {
                if (!row.dragged)
                    return;
                const y = point.scenePosition.y;
                list.updateDrag(y);
                const local = list.mapFromItem(null, 0, y).y;
                autoScroll.step = local < 40 ? -8 : (local > list.height - 40 ? 8 : 0);
                if (autoScroll.step !== 0)
                    autoScroll.start();
                else
                    autoScroll.stop();
            }
            onActiveChanged: {
                if (!active && row.dragged)
                    list.endDrag(true);
            }
        }
    }

    add: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: 250
        }
    }
    remove: Transition {
        NumberAnimation {
            property: "opacity"
            to: 0
            duration: 200
        }
    }
    // Rows moving to new places, and those they pass, glide there together.
    move: Transition {
        NumberAnimation {
            property: "y"
            duration: list.moveDuration
            easing.type: Easing.InOutQuad
        }
    }
    moveDisplaced: Transition {
        NumberAnimation {
            property: "y"
            duration: list.moveDuration
            easing.type: Easing.InOutQuad
        }
    }
    displaced: Transition {
        NumberAnimation {
            property: "y"
            duration: 250
            easing.type: Easing.InOutQuad
        }
    }
}
