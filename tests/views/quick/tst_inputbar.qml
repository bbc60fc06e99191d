import QtQuick
import QtTest
import Murvane

Item {
    id: scene
    width: 390
    height: 300

    Component {
        id: barComponent

        NewItemInputView {
            width: scene.width
            y: 100
        }
    }

    SignalSpy {
        id: submitSpy
        signalName: "addOrUpdateAction"
    }
    SignalSpy {
        id: undoSpy
        signalName: "undoAction"
    }
    SignalSpy {
        id: editSpy
        signalName: "newItemEdited"
    }
    SignalSpy {
        id: focusSpy
        signalName: "fieldFocusEdited"
    }

    TestCase {
        name: "NewItemInputView"
        when: windowShown

        function makeBar(properties) {
            const bar = createTemporaryObject(barComponent, scene, properties || {});
            verify(bar);
            for (const spy of [submitSpy, undoSpy, editSpy, focusSpy]) {
                spy.clear();
                spy.target = bar;
            }
            waitForRendering(bar);
            return bar;
        }

        function test_submitLabelFollowsTheEditingId() {
            const bar = makeBar();
            compare(bar.submitButton.text, "Add");
            bar.editingItemId = "0B0E4E6A-2F0B-4A43-9A42-7B7C1D1B8F10";
            compare(bar.submitButton.text, "Update");
            bar.editingItemId = "";
            compare(bar.submitButton.text, "Add");
        }

        function test_buttonsReportAndLeaveTheFocus() {
            const bar = makeBar({ newItemFieldIsFocused: true });
            tryVerify(() => bar.entry.entryActiveFocus);
            mouseClick(bar.submitButton);
            mouseClick(bar.undoButton);
            compare(submitSpy.count, 1);
            compare(undoSpy.count, 1);
            // Tapping "Add" keeps the keyboard for the next item.
            verify(bar.entry.entryActiveFocus);
            compare(focusSpy.count, 0);
        }

        function test_typingReportsEveryKeystroke() {
            const bar = makeBar();
            mouseClick(bar.entry);
            tryVerify(() => bar.entry.entryActiveFocus);
            compare(focusSpy.count, 1);
            compare(focusSpy.signalArguments[0][0], true);
            keyClick(Qt.Key_H);
            keyClick(Qt.Key_I);
            compare(editSpy.count, 2);
            compare(editSpy.signalArguments[1][0], "hi");
        }

        function test_textFromOutsideIsNotReportedBack() {
            const bar = makeBar();
            bar.newItem = "Bread";
            compare(bar.entry.textArea.text, "Bread");
            compare(editSpy.count, 0);
            compare(bar.entry.textArea.cursorPosition, 5);
        }

        function test_escapePutsTheKeyboardAway() {
            const bar = makeBar();
            // The screen takes each reported focus change.
            bar.fieldFocusEdited.connect(focused => bar.newItemFieldIsFocused = focused);
            mouseClick(bar.entry);
            tryVerify(() => bar.entry.entryActiveFocus);
            keyClick(Qt.Key_Escape);
            tryVerify(() => !bar.entry.entryActiveFocus);
            compare(focusSpy.count, 2);
            compare(focusSpy.signalArguments[1][0], false);
        }

        function test_focusFollowsTheScreen() {
            const bar = makeBar();
            verify(!bar.entry.entryActiveFocus);
            bar.newItemFieldIsFocused = true;
            tryVerify(() => bar.entry.entryActiveFocus);
            bar.newItemFieldIsFocused = false;
            tryVerify(() => !bar.entry.entryActiveFocus);
            // The screen's own change is not echoed back to it.
            compare(focusSpy.count, 0);
        }

        function test_entryGrowsFrom36To150() {
            const bar = makeBar();
            compare(bar.entry.height, 36);
            bar.newItem = "one\ntwo\nthree";
            tryVerify(() => bar.entry.height > 36 && bar.entry.height < 150);
            bar.newItem = Array(30).fill("line").join("\n");
            tryCompare(bar.entry, "height", 150);
            bar.newItem = "";
            tryCompare(bar.entry, "height", 36);
        }

        function test_bulletFliesOutAndBack() {
            const bar = makeBar();
            compare(bar.bullet.opacity, 0);
            compare(bar.bullet.x, 0);
            bar.showBullet = true;
            bar.bulletOffset = 300;
            wait(30);
            verify(bar.bullet.x > 0 && bar.bullet.x < 300, "x " + bar.bullet.x);
            tryCompare(bar.bullet, "x", 300, 500);
            compare(bar.bullet.opacity, 1);
            bar.showBullet = false;
            bar.bulletOffset = 0;
            // The way back is slower than the way out.
            wait(120);
            verify(bar.bullet.x > 0, "x " + bar.bullet.x);
            tryCompare(bar.bullet, "x", 0, 500);
            compare(bar.bullet.opacity, 0);
        }
    }
}
