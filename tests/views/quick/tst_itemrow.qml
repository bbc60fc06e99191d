import QtQuick
import QtTest
import Murvane

Item {
    id: scene
    width: 390
    height: 200

    Component {
        id: rowComponent

        ItemRowView {
            width: scene.width
            itemText: "Milk"
        }
    }

    TestCase {
        id: test

        name: "ItemRowView"
        when: windowShown

        property var log: []

        function makeRow(properties) {
            const row = createTemporaryObject(rowComponent, scene, properties || {});
            verify(row);
            test.log = [];
            row.tapDone.connect(() => test.log.push("tapDone"));
            row.toggleState.connect(() => test.log.push("toggleState"));
            row.editingAction.connect(() => test.log.push("editingAction"));
            row.pinAction.connect(() => test.log.push("pinAction"));
            row.deleteAction.connect(() => test.log.push("deleteAction"));
            waitForRendering(row);
            return row;
        }

        function centreOf(row, item) {
            return item.mapToItem(row, item.width / 2, item.height / 2);
        }

        // A finger moving sideways across the row in small steps.
        function touchSwipe(row, fromX, toX) {
            const y = row.height / 2;
            const steps = 12;
            const touch = touchEvent(row);
            touch.press(0, row, fromX, y).commit();
            for (let i = 1; i <= steps; ++i) {
                wait(16);
                touch.move(0, row, fromX + (toX - fromX) * i / steps, y).commit();
            }
            touch.release(0, row, toX, y).commit();
        }

        function test_taps_data() {
            return [
                { tag: "marker with the mouse", target: "marker", touch: false, expected: ["tapDone", "toggleState"] },
                { tag: "marker with a finger", target: "marker", touch: true, expected: ["tapDone", "toggleState"] },
                { tag: "text with the mouse", target: "text", touch: false, expected: ["editingAction"] },
                { tag: "text with a finger", target: "text", touch: true, expected: ["editingAction"] },
                { tag: "spacer", target: "spacer", touch: false, expected: [] },
            ];
        }

        function test_taps(data) {
            const row = makeRow({ isPinned: true });
            let point;
            if (data.target === "marker")
                point = centreOf(row, row.content.marker);
            else if (data.target === "text")
                point = centreOf(row, row.content.textBox);
            else
                point = Qt.point(row.width / 2, row.height / 2);
            if (data.touch) {
                const touch = touchEvent(row);
                touch.press(0, row, point.x, point.y).commit();
                touch.release(0, row, point.x, point.y).commit();
            } else {
                mouseClick(row, point.x, point.y);
            }
            compare(test.log, data.expected);
        }

        function test_fullSwipes_data() {
            return [
                { tag: "leading, mouse", leading: true, touch: false, expected: ["pinAction"] },
                { tag: "leading, finger", leading: true, touch: true, expected: ["pinAction"] },
                { tag: "trailing, mouse", leading: false, touch: false, expected: ["deleteAction"] },
                { tag: "trailing, finger", leading: false, touch: true, expected: ["deleteAction"] },
            ];
        }

        function test_fullSwipes(data) {
            const row = makeRow();
            const from = data.leading ? 40 : row.width - 60;
            const to = data.leading ? row.width - 20 : 20;
            if (data.touch)
                touchSwipe(row, from, to);
            else
                mouseDrag(row, from, row.height / 2, to - from, 0, Qt.LeftButton, Qt.NoModifier, 10);
            tryCompare(test, "log", data.expected);
            // A pinned row springs back into place.
            if (data.leading)
                tryCompare(row.swipe, "position", 0);
        }

        function test_pinSwipeShowsThePinState_data() {
            return [
                { tag: "unpinned", isPinned: false, symbol: "pin" },
                { tag: "pinned", isPinned: true, symbol: "pin.fill" },
            ];
        }

        function test_pinSwipeShowsThePinState(data) {
            const row = makeRow({ isPinned: data.isPinned });
            const y = row.height / 2;
            mousePress(row, 40, y);
            for (let x = 40; x <= 140; x += 10)
                mouseMove(row, x, y);
            verify(row.swipe.leftItem);
            compare(row.swipe.leftItem.symbol, data.symbol);
            verify(row.swipe.leftItem.visible);
            compare(row.swipe.leftItem.title, "Pin");
            mouseRelease(row, 140, y);
        }

        function test_doneLook() {
            const row = makeRow({ isDone: false });
            const marker = findChild(row.content, "doneMarker");
            compare(marker.name, "circle");
            compare(row.content.textBox.color.a, 0);
            row.isDone = true;
            compare(marker.name, "largecircle.fill.circle");
            fuzzyCompare(row.content.textBox.color.a, 0.2, 0.01);
        }

        // The marker turns on a spring: it is on its way, not there at once,
        // and comes to rest at the new angle.
        function test_markerTurnsWithASpring() {
            const row = makeRow();
            const marker = findChild(row.content, "doneMarker");
            compare(marker.rotation, 0);
            row.rotationAngle = 180;
            wait(50);
            verify(marker.rotation > 0 && marker.rotation < 180, "rotation " + marker.rotation);
            tryCompare(marker, "rotation", 180, 3000);
        }

        function test_pinMarkOnlyWhenPinned() {
            const row = makeRow({ isPinned: false });
            let mark = null;
            for (let i = 0; i < row.content.children.length; ++i) {
                if (row.content.children[i].name === "pin.fill")
                    mark = row.content.children[i];
            }
            verify(mark);
            verify(!mark.visible);
            row.isPinned = true;
            verify(mark.visible);
            verify(mark.x + mark.width <= row.content.marker.x);
        }

        function test_longTextWrapsWithinTheRow() {
            const row = makeRow({ itemText: "A long line of text that cannot possibly fit on one line of a phone's row" });
            verify(row.content.textBox.width < row.content.marker.x);
            verify(row.height > 46);
        }
    }
}
