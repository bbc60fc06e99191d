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
    readonly property ScreenState screen: view ? view.screenState : null
    readonly property ContentLayers layers: view ? view.layers as ContentLayers : null

    when: windowShown

    Component {
        id: contentComponent

        ContentView {
            anchors.fill: parent
        }
    }

    // A screen over `names` with `lists` of {text, done, pinned}; without
    // names, over an empty store (the default lists).
    function makeScreen(names, lists, selected) {
        TestStore.reset();
        if (names)
            TestStore.seed(names, lists, selected || 0);
        view = createTemporaryObject(contentComponent, scene);
        verify(view);
        tryVerify(() => tc.layers !== null);
        waitForRendering(view);
        return view;
    }

    // Lets the rows' move and remove animations finish.
    function settle() {
        wait(400);
    }

    function items(texts) {
        return texts.map(t => typeof t === "string" ? { text: t } : t);
    }

    function row(index) {
        return layers.itemList.itemAtIndex(index);
    }

    function rowTexts() {
        const texts = [];
        for (let i = 0; i < layers.itemList.count; ++i) {
            const r = row(i);
            texts.push(r ? r.itemText : null);
        }
        return texts;
    }

    function centre(item) {
        return item.mapToItem(view, item.width / 2, item.height / 2);
    }

    function tapItem(item, touch) {
        const p = centre(item);
        if (touch) {
            const t = touchEvent(view);
            t.press(0, view, p.x, p.y).commit();
            t.release(0, view, p.x, p.y).commit();
        } else {
            mouseClick(view, p.x, p.y);
        }
    }

    function tapMarker(index, touch) {
        tapItem(row(index).content.marker, touch);
    }

    function tapText(index, touch) {
        tapItem(row(index).content.textBox, touch);
    }

    function button(name) {
        const found = findChild(view, name);
        verify(found, "no " + name);
        return found;
    }

    function typeText(text) {
        for (const ch of text)
            keyClick(ch);
    }

    // A full swipe across a row, with the mouse or a finger.
    function swipeRow(index, leading, touch) {
        const r = row(index);
        const y = r.height / 2;
        const from = leading ? 30 : r.width - 70;
        const to = leading ? r.width - 10 : 10;
        if (touch) {
            const t = touchEvent(r);
            t.press(0, r, from, y).commit();
            for (let i = 1; i <= 12; ++i) {
                wait(16);
                t.move(0, r, from + (to - from) * i / 12, y).commit();
            }
            t.release(0, r, to, y).commit();
        } else {
            mouseDrag(r, from, y, to - from, 0, Qt.LeftButton, Qt.NoModifier, 10);
        }
    }

    // Holds a row until it lifts, drags it so its middle lands at `toY`
    // (in the list's coordinates) and lets go.
    function dragRow(index, toY, touch) {
        const list = layers.itemList;
        const r = row(index);
        const start = r.mapToItem(list, 60, r.height / 2);
        if (touch) {
            const t = touchEvent(list);
            t.press(0, list, start.x, start.y).commit();
            wait(1000);
            for (let i = 1; i <= 10; ++i) {
                t.move(0, list, start.x, start.y + (toY - start.y) * i / 10).commit();
                wait(16);
            }
            t.release(0, list, start.x, toY).commit();
        } else {
            mousePress(list, start.x, start.y);
            wait(1000);
            for (let i = 1; i <= 10; ++i) {
                mouseMove(list, start.x, start.y + (toY - start.y) * i / 10);
                wait(16);
            }
            mouseRelease(list, start.x, toY);
        }
    }

    function openMenu() {
        mouseClick(layers.toolbar.menuButton);
        tryCompare(layers.toolbar.menu, "opened", true);
    }

    function chooseMenuEntry(title) {
        openMenu();
        const menu = layers.toolbar.menu;
        for (let i = 0; i < menu.count; ++i) {
            if (menu.itemAt(i).text === title) {
                mouseClick(menu.itemAt(i));
                tryCompare(menu, "visible", false);
                return;
            }
        }
        fail("no menu entry " + title);
    }
}
