import QtQuick
import QtTest
import Murvane
import MurvaneTest

// A test case over a fresh main screen on a fresh in-memory store, with the
// gestures the screen tests use.
TestCase {
    id: tc

    required property Item scene

    property ContentView view: null
    readonly property ScreenState screen: view ? view.screen : null
    readonly property ContentLayers layers: view ? view.layers as ContentLayers : null
    // Rows for tests that run once with the mouse and once with a finger.
    readonly property var pointers: [{ tag: "mouse", touch: false }, { tag: "touch", touch: true }]

    when: windowShown

    Component {
        id: contentComponent

        ContentView {
            anchors.fill: parent
        }
    }

    // A screen over lists of item texts: "*" before a text pins the item,
    // "+" marks it done.
    function makeScreen(names, lists, selected) {
        TestStore.reset();
        TestStore.seed(names, lists, selected || 0);
        view = createTemporaryObject(contentComponent, scene, { screen: TestStore.newScreen() });
        verify(view);
        tryVerify(() => tc.layers !== null);
        waitForRendering(view);
    }

    function row(index) {
        return layers.itemList.itemAtIndex(index);
    }

    // The rows as marked texts, joined by commas.
    function rows() {
        const texts = [];
        for (let i = 0; i < layers.itemList.count; ++i) {
            const r = row(i);
            texts.push(r ? (r.isPinned ? "*" : "") + (r.isDone ? "+" : "") + r.itemText : null);
        }
        return texts.join();
    }

    // Waits for the rows to read `expected`, and says what they read if not.
    function expectRows(expected) {
        for (let i = 0; i < 60 && rows() !== expected; ++i)
            wait(50);
        compare(rows(), expected);
    }

    function typeText(text) {
        for (const ch of text)
            keyClick(ch);
    }

    // A tap in the middle of `item`, with the mouse or a finger.
    function tap(item, touch) {
        const p = item.mapToItem(view, item.width / 2, item.height / 2);
        stroke(view, p, p, touch);
    }

    // Presses at `from`, moves to `to` in ten steps 16 ms apart and lets
    // go, with the mouse or a finger; holding `hold` ms first lifts a row
    // to drag it.
    function stroke(target, from, to, touch, hold) {
        const finger = touch ? touchEvent(target) : null;
        // The press, ten moves, the release.
        for (let i = 0; i <= 11; ++i) {
            const x = from.x + (to.x - from.x) * Math.min(i, 10) / 10;
            const y = from.y + (to.y - from.y) * Math.min(i, 10) / 10;
            const kind = i === 0 ? "press" : i === 11 ? "release" : "move";
            if (touch)
                finger[kind](0, target, x, y).commit();
            else if (i === 0)
                mousePress(target, x, y);
            else if (i < 11) // the mouse's events carry their time, so speeds come out right
                mouseMove(target, x, y, 16);
            else
                mouseRelease(target, x, y, Qt.LeftButton, Qt.NoModifier, 16);
            if (touch || i === 0)
                wait((i === 0 ? hold || 16 : 0) + (touch ? 16 : 0));
        }
    }

    // A full swipe across a row: leading pins, trailing deletes.
    function swipeRow(index, leading, touch) {
        const r = row(index);
        const y = r.height / 2;
        stroke(r, Qt.point(leading ? 30 : r.width - 70, y), Qt.point(leading ? r.width - 10 : 10, y), touch);
    }

    // Holds a row until it lifts and drops it with its middle at `toY`, in
    // the list's coordinates.
    function dragRow(index, toY, touch) {
        const list = layers.itemList;
        const start = row(index).mapToItem(list, 60, row(index).height / 2);
        stroke(list, start, Qt.point(start.x, toY), touch, 1000);
    }

    // Picks entry `index` of the toolbar's menu, then entry `themeIndex`
    // of the themes submenu when given.
    function chooseMenuEntry(index, themeIndex) {
        const bar = layers.toolbar;
        mouseClick(bar.menuButton);
        tryCompare(bar.menu, "opened", true);
        mouseClick(bar.menu.itemAt(index));
        if (themeIndex === undefined) {
            tryCompare(bar.menu, "visible", false);
            return;
        }
        tryCompare(bar.themesMenu, "opened", true);
        mouseClick(bar.themesMenu.itemAt(themeIndex));
    }
}
