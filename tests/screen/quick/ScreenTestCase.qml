import QtQuick
import QtTest
import Murvane
import MurvaneTest

// A test case over a fresh main screen on a fresh in-memory store, with the
// gestures the screen tests use.
TestCase {
    id: tc

    property ContentView view: null
    readonly property ScreenState screen: view ? view.screen : null
    readonly property ContentLayers layers: view ? view.layers as ContentLayers : null
    // Rows for tests that run once with the mouse and once with a finger.
    readonly property var pointers: [{ tag: "mouse", touch: false }, { tag: "touch", touch: true }]

    when: windowShown

    property Component contentComponent: ContentView {
        anchors.fill: parent
    }

    // A screen over lists of item texts: "*" before a text pins the item,
    // "+" marks it done.
    function makeScreen(names, lists, selected) {
        TestStore.reset();
        TestStore.seed(names, lists, selected || 0);
        view = createTemporaryObject(contentComponent, tc.parent, { screen: TestStore.newScreen() });
        tryVerify(() => tc.layers !== null);
        waitForRendering(view);
    }

    function row(index) {
        return layers.itemList.itemAtIndex(index);
    }

    // The rows as marked texts, joined by commas.
    function rows() {
        const mark = r => r ? (r.isPinned ? "*" : "") + (r.isDone ? "+" : "") + r.itemText : null;
        return Array.from({ length: layers.itemList.count }, (_, i) => mark(row(i))).join();
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
    // to drag it. Strokes at rows wait for the rows to settle.
    function stroke(target, from, to, touch, hold) {
        const finger = touch ? touchEvent(target) : null;
        // The press, ten moves, the release.
        for (let i = 0; i <= 11; ++i) {
            const x = from.x + (to.x - from.x) * Math.min(i, 10) / 10;
            const y = from.y + (to.y - from.y) * Math.min(i, 10) / 10;
            const kind = i === 0 ? "press" : i === 11 ? "release" : "move";
            // The mouse's events carry their time, so speeds come out right.
            const mouse = { press: () => mousePress(target, x, y), move: () => mouseMove(target, x, y, 16),
                            release: () => mouseRelease(target, x, y, Qt.LeftButton, Qt.NoModifier, 16) };
            if (touch)
                finger[kind](0, target, x, y).commit();
            else
                mouse[kind]();
            if (touch || i === 0)
                wait((i === 0 ? hold || 16 : 0) + (touch ? 16 : 0));
        }
    }

    // Waits for the rows to stand still, one under the other: a stroke
    // aimed at a row still on its way lands on another.
    function settleRows() {
        const placed = (r, i, all) => r.content.parent.y === 0 && r.y === (i ? all[i - 1].y + all[i - 1].height : 0);
        tryVerify(() => Array.from({ length: layers.itemList.count }, (_, i) => row(i)).every(placed));
    }

    // A full swipe across a row: leading pins, trailing deletes.
    function swipeRow(index, leading, touch) {
        settleRows();
        const r = row(index);
        const y = r.height / 2;
        stroke(r, Qt.point(leading ? 30 : r.width - 70, y), Qt.point(leading ? r.width - 10 : 10, y), touch);
    }

    // Picks entry `index` of the toolbar's menu, then entry `themeIndex`
    // of the themes submenu when given.
    function chooseMenuEntry(index, themeIndex) {
        const bar = layers.toolbar;
        mouseClick(bar.menuButton);
        tryCompare(bar.menu, "opened", true);
        mouseClick(bar.menu.itemAt(index));
        if (themeIndex !== undefined) {
            tryCompare(bar.themesMenu, "opened", true);
            mouseClick(bar.themesMenu.itemAt(themeIndex));
        }
    }
}
