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
                            width: parent.width
                            text: section.modelData.heading
                            wrapMode: Text.Wrap
                            color: root.primaryText
                            font.pixelSize: 17
                            font.weight: Font.DemiBold
                        }

                        Text {
                            objectName: "sectionText"
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
            contentItem: Text {
                text: done.text
                verticalAlignment: Text.AlignVCenter
                color: root.accent
                opacity: done.pressed ? 0.3 : 1
                font.pixelSize: 17
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
