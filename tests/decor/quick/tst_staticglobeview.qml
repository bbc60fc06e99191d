import QtQuick
import QtTest
import Murvane

Item {
    id: scene
    width: 200
    height: 200

    Component {
        id: iconComponent
        // A button-like frame: grey so both dot colours show, and a click
        // target under the icon.
        Rectangle {
            property alias icon: icon
            property int clicks: 0
            width: 60
            height: 60
            color: "#808080"
            MouseArea {
                anchors.fill: parent
                onClicked: parent.clicks += 1
            }
            StaticGlobeView {
                id: icon
                anchors.centerIn: parent
            }
        }
    }

    TestCase {
        name: "StaticGlobeView"
        when: windowShown

        // White dots in the dark scheme, black in the light one: pixels
        // clearly lighter or darker than the grey behind.
        function verifyDots(frame, dark) {
            waitForRendering(frame)
            const image = grabImage(frame.icon)
            const t = { dark: 0, light: 0 }
            for (let y = 0; y < image.height; ++y) {
                for (let x = 0; x < image.width; ++x) {
                    const r = image.pixel(x, y).r
                    t.dark += r < 0.3
                    t.light += r > 0.7
                }
            }
            verify(dark ? t.light > 60 && t.dark === 0 : t.dark > 60 && t.light === 0, JSON.stringify(t))
        }

        function test_dotColourFollowsTheScheme_data() {
            return [ { tag: "light first", dark: false }, { tag: "dark first", dark: true } ]
        }
        function test_dotColourFollowsTheScheme(data) {
            const frame = createTemporaryObject(iconComponent, scene, { "icon.isDark": data.dark })
            verifyDots(frame, data.dark)
            // Switching recolours it on the next frame.
            frame.icon.isDark = !data.dark
            verifyDots(frame, !data.dark)
        }

        function test_isA28PointIconThatLetsTapsThrough() {
            const frame = createTemporaryObject(iconComponent, scene)
            compare(frame.icon.implicitWidth, 28)
            compare(frame.icon.implicitHeight, 28)
            mouseClick(frame.icon)
            compare(frame.clicks, 1)
        }
    }
}
