import QtQuick
import QtQuick.Controls.Basic
import Murvane

// The input bar's multi-line entry. It grows with its lines from 36 to 150
// points and scrolls beyond that. `text` is bound from outside; each
// keystroke is reported through `edited` so the owner stays the one source.
Flickable {
    id: root

    property string text
    readonly property alias entryActiveFocus: area.activeFocus
    // Why the entry last gained or lost the focus (a Qt.FocusReason).
    readonly property alias entryFocusReason: area.focusReason
    // Focus that came from the keyboard, which the focus ring shows.
    readonly property bool entryKeyboardFocus: area.activeFocus && (area.focusReason === Qt.TabFocusReason
                                                                    || area.focusReason === Qt.BacktabFocusReason
                                                                    || area.focusReason === Qt.ShortcutFocusReason)
    readonly property alias textArea: area

    signal edited(string text)
    // Ctrl+Return, the desktop's way to submit from a multi-line field.
    signal submitRequested

    function focusEntry() {
        area.forceActiveFocus();
    }
    function releaseFocus() {
        area.focus = false;
    }

    // The wrap mode is chosen before the text arrives: laid out first with
    // word wrapping, a long unbroken run would cost what the mode avoids.
    onTextChanged: area.take(text)
    Component.onCompleted: area.take(text)

    implicitHeight: Math.min(150, Math.max(36, area.implicitHeight))
    contentWidth: width
    contentHeight: area.implicitHeight
    clip: true
    boundsBehavior: Flickable.StopAtBounds
    flickableDirection: Flickable.VerticalFlick

    ScrollBar.vertical: ScrollBar {
        policy: root.contentHeight > root.height ? ScrollBar.AsNeeded : ScrollBar.AlwaysOff
    }

    FontMetrics {
        id: metrics

        font: area.font
    }

    TextArea.flickable: TextArea {
        id: area

        function take(newText: string) {
            wrapMode = TextWrapping.wrapsAnywhere(newText) ? TextEdit.WrapAnywhere : TextEdit.Wrap;
            if (text !== newText)
                text = newText;
        }

        // One line sits in the middle of the 36-point minimum.
        topPadding: Math.max(1, Math.floor((36 - metrics.lineSpacing) / 2))
        bottomPadding: topPadding
        leftPadding: 5
        rightPadding: 5
        wrapMode: TextEdit.Wrap
        textFormat: TextEdit.PlainText
        // Laid out on the font's design metrics: natively drawn text is laid
        // out on hinted ones, which a very long item taken up for editing
        // (a megabyte without a space) takes seconds longer to lay out.
        renderType: Text.QtRendering
        font.family: "TeX Gyre Heros"
        font.pixelSize: 15
        color: Appearance.foreground
        selectionColor: Appearance.pick(Appearance.theme.accentDark, Appearance.theme.accentLight)
        selectedTextColor: Appearance.foreground
        placeholderText: ""
        background: Item {}
        Accessible.name: "New Item"

        onTextChanged: {
            // A text set from outside (an item taken up for editing) puts
            // the cursor at its end.
            if (text !== root.text)
                root.edited(text);
            else
                cursorPosition = length;
        }

        // Escape puts the keyboard away, as a tap outside does on a phone.
        Keys.onEscapePressed: focus = false
        Keys.onPressed: event => {
            if ((event.key === Qt.Key_Return || event.key === Qt.Key_Enter)
                    && (event.modifiers & Qt.ControlModifier)) {
                event.accepted = true;
                root.submitRequested();
            } else if (event.key === Qt.Key_Tab || event.key === Qt.Key_Backtab) {
                // Tab leaves the entry, as it leaves every other control:
                // an item has no use for tab characters.
                event.accepted = true;
                const forward = event.key === Qt.Key_Tab && !(event.modifiers & Qt.ShiftModifier);
                nextItemInFocusChain(forward)?.forceActiveFocus(forward ? Qt.TabFocusReason : Qt.BacktabFocusReason);
            }
        }
    }
}
