import QtQuick
import QtQuick.Controls.Basic
import Murvane

// The selected list's name in the middle of the navigation bar, edited in
// place. It keeps no text of its own: every keystroke goes out through
// titleChange and what shows is the title that comes back.
TextField {
    id: root

    property string title
    // Set by the screen from the title's length.
    property int pointSize: 21

    signal titleChange(string text)
    signal titleEditingChanged(bool editing)
    signal titleCommit

    text: title
    placeholderText: "List Name"
    horizontalAlignment: TextInput.AlignHCenter
    verticalAlignment: TextInput.AlignVCenter
    padding: 0
    color: Appearance.foreground
    placeholderTextColor: SystemColors.placeholder
    selectionColor: Appearance.pick(Appearance.theme.accentDark, Appearance.theme.accentLight)
    selectedTextColor: Appearance.foreground
    font.pixelSize: pointSize
    font.weight: Font.DemiBold
    background: Item {
        FocusRing {
            shown: root.activeFocus && (root.focusReason === Qt.TabFocusReason
                                        || root.focusReason === Qt.BacktabFocusReason
                                        || root.focusReason === Qt.ShortcutFocusReason)
        }
    }
    Accessible.name: placeholderText

    onTextEdited: {
        titleChange(text);
        // A name the screen did not take (no list selected) does not stay.
        if (text !== title)
            text = Qt.binding(() => root.title);
    }
    onActiveFocusChanged: titleEditingChanged(activeFocus)
    Keys.onEscapePressed: focus = false
    onAccepted: {
        titleCommit();
        focus = false;
    }
}
