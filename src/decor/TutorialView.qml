pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import Murvane

// The built-in help page, shown by the main screen as a sheet. It fills its
// parent and closes only through its "Done" button, which emits `done()`:
// the presenter closes the sheet in response. It ignores the theme but
// follows the scheme: the platform's page, label colours and blue.
Item {
    id: root

    signal done()

    readonly property color primaryText: SystemColors.label
    readonly property color secondaryText: SystemColors.secondaryLabel
    readonly property color accent: SystemColors.blue
    readonly property real margin: 16
    // Extra space between the lines of the wrapped texts.
    readonly property real lineSpacing: 4

    anchors.fill: parent
    // The page takes the keyboard when shown: the arrows scroll it by a
    // line, Page Up and Page Down by a screen.
    focus: true
    Keys.onPressed: event => {
        const line = 40;
        const step = { [Qt.Key_Up]: -line, [Qt.Key_Down]: line,
                       [Qt.Key_PageUp]: -page.height, [Qt.Key_PageDown]: page.height }[event.key];
        if (step === undefined)
            return;
        const bottom = Math.max(0, page.contentHeight - page.height);
        page.contentY = Math.max(0, Math.min(bottom, page.contentY + step));
        event.accepted = true;
    }

    Rectangle {
        anchors.fill: parent
        color: SystemColors.elevatedBackground
    }

    FontMetrics {
        id: bodyMetrics
        font.pixelSize: 17
    }

    FontMetrics {
        id: subheadlineMetrics
        font.pixelSize: 15
    }

    Flickable {
        id: page
        objectName: "tutorialPage"
        anchors.top: bar.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        clip: true
        contentWidth: width
        contentHeight: column.implicitHeight + root.margin
        boundsBehavior: Flickable.DragOverBounds
        ScrollBar.vertical: ScrollBar {}

        Column {
            id: column
            x: root.margin
            width: page.width - 2 * root.margin
            spacing: 20

            Text {
                objectName: "tutorialTitle"
                Accessible.role: Accessible.StaticText
                Accessible.name: text
                width: column.width
                topPadding: root.margin
                text: TutorialContent.title
                wrapMode: Text.Wrap
                color: root.primaryText
                font.pixelSize: 28
                font.weight: Font.DemiBold
            }

            Text {
                objectName: "tutorialIntro"
                Accessible.role: Accessible.StaticText
                Accessible.name: text
                width: column.width
                text: TutorialContent.intro
                wrapMode: Text.Wrap
                color: root.primaryText
                font.pixelSize: 17
                lineHeightMode: Text.FixedHeight
                lineHeight: bodyMetrics.lineSpacing + root.lineSpacing
            }

            Repeater {
                id: sections
                objectName: "tutorialSections"
                model: TutorialContent.sections

                Row {
                    id: section

                    required property var modelData

                    width: column.width
                    spacing: 10

                    Item {
                        id: iconBox
                        width: icon.width
                        height: icon.height + 3

                        SymbolIcon {
                            id: icon
                            y: 3
                            name: section.modelData.icon
                            pointSize: 20
                            color: root.accent
                        }
                    }

                    Column {
                        width: section.width - iconBox.width - section.spacing
                        spacing: 5

                        Text {
                            objectName: "sectionHeading"
                            Accessible.role: Accessible.StaticText
                            Accessible.name: text
                            width: parent.width
                            text: section.modelData.heading
                            wrapMode: Text.Wrap
                            color: root.primaryText
                            font.pixelSize: 17
                            font.weight: Font.DemiBold
                        }

                        Text {
                            objectName: "sectionText"
                            Accessible.role: Accessible.StaticText
                            Accessible.name: text
                            width: parent.width
                            text: section.modelData.text
                            wrapMode: Text.Wrap
                            color: root.secondaryText
                            font.pixelSize: 15
                            lineHeightMode: Text.FixedHeight
                            lineHeight: subheadlineMetrics.lineSpacing + root.lineSpacing
                        }
                    }
                }
            }
        }
    }

    // The navigation bar: the inline title and the trailing "Done".
    Rectangle {
        id: bar
        width: parent.width
        height: 44
        color: SystemColors.elevatedBackground

        Text {
            anchors.centerIn: parent
            width: Math.min(implicitWidth, parent.width - 2 * (done.width + root.margin))
            elide: Text.ElideRight
            text: TutorialContent.navigationTitle
            color: root.primaryText
            font.pixelSize: 17
            font.weight: Font.DemiBold
        }

        AbstractButton {
            id: done
            objectName: "doneButton"
            anchors.right: parent.right
            anchors.rightMargin: root.margin
            anchors.verticalCenter: parent.verticalCenter
            height: parent.height
            text: TutorialContent.doneLabel
            focusPolicy: Qt.TabFocus
            Accessible.name: text
            Accessible.onPressAction: done.clicked()
            Keys.onReturnPressed: done.clicked()
            Keys.onEnterPressed: done.clicked()
            contentItem: Text {
                text: done.text
                verticalAlignment: Text.AlignVCenter
                color: root.accent
                opacity: done.pressed ? 0.3 : 1
                font.pixelSize: 17
            }
            background: Item {
                FocusRing {
                    shown: done.visualFocus
                }
            }
            onClicked: root.done()
        }

        // A hairline once the page has scrolled under the bar.
        Rectangle {
            anchors.bottom: parent.bottom
            width: parent.width
            height: 1
            color: SystemColors.hairline
            visible: page.contentY > 0
        }
    }
}
