#include "decor/GlobeGeometry.h"
#include "decor/GlobeScene.h"
#include "decor/TutorialContent.h"

#include <QSet>
#include <QTest>

#include <cmath>
#include <numbers>

using Variant = GlobeScene::Variant;
using Kind = GlobeScene::NodeKind;
Q_DECLARE_METATYPE(GlobeScene::Variant)

// The tutorial's texts and the globes' scenes.
class TestDecor : public QObject
{
    Q_OBJECT

private slots:
    void tutorialTextsAreExact()
    {
        QCOMPARE(TutorialContent::navigationTitle(), u"Tutorial");
        QCOMPARE(TutorialContent::doneLabel(), u"Done");
        QCOMPARE(TutorialContent::title(), u"Welcome to Murvane!");
        QCOMPARE(TutorialContent::intro(), u"Here’s a quick guide to help you get started:");
        // Every section; straight quotes in 1, 3 and 4, typographic ones elsewhere.
        const QStringList table[] = {
            {"plus.circle", "Creating a New List", "Tap the \"+\" button at the top-right to create a brand new list. You can keep multiple lists for different areas of your life."},
            {"square.and.pencil", "Renaming a List", "Need a better name? Tap the list’s title at the top to edit it in place, then press return to confirm."},
            {"text.badge.plus", "Adding Items", "Use the input bar at the bottom to add items to your selected list. Type the item’s name, then tap \"Add\" to save."},
            {"highlighter", "Editing an Existing Item", "To correct or rename an item, tap its text in the list. The input bar will pre-fill that item’s text. Make your changes, then tap \"Update\" to save."},
            {"pin", "Pin & Unpin", "Swipe an item from left to right to reveal “Pin.” Pinned items float to the top. Swipe again to unpin."},
            {"largecircle.fill.circle", "Mark Items as Done", "Tap the circle on the right to mark an item as completed. Tap again to switch it back to “To-Do.”"},
            {"trash", "Delete Items", "Swipe any item from right to left to remove it. This is great for clearing out tasks you no longer need."},
            {"arrow.left.and.right.circle", "Reordering Entire Lists", "Tap the “<<” or “>>” arrow buttons at the top to move the current list left or right in your list header row."},
            {"arrow.up.arrow.down.circle", "Sort & Rearrange Items", "Use “ABC” or “↑↓” at the bottom to sort items by text or status. You can also long-press and drag items to reorder them manually."},
            {"paintbrush", "Themes & Appearance", "Use the Murvane menu button at the bottom to pick a theme, or toggle dark/light mode with the moon icon."},
            {"minus.circle", "Deleting an Entire List", "Tap the minus button in the top bar. After confirming, the currently selected list will be removed completely."},
            {"square.and.arrow.up", "Share a List", "Want to send your list to family or friends? Tap the share icon at the bottom right to export it."},
            {"arrow.uturn.backward.circle", "Undo Actions", "Need to revert a deletion or list sort? Tap the arrow icon on the input bar. It restores deleted items, whole lists, or reverts sorts."},
            {"star.bubble", "We Value Your Feedback", "We’d love to hear from you! Use the “Rate Murvane!” option or send us suggestions anytime."},
            {"party.popper", "Have Fun!", "That’s it! We hope Murvane makes your life simpler. Thank you for using it!"},
        };
        QCOMPARE(TutorialContent::sections().size(), qsizetype(std::size(table)));
        for (int i = 0; i < int(std::size(table)); ++i) {
            const TutorialContent::Section &section = TutorialContent::sections().at(i);
            QCOMPARE(QStringList({section.icon, section.heading, section.text}), table[i]);
        }
    }

    void variantsLayOutTheirDotsOnTheSphere_data()
    {
        QTest::addColumn<Variant>("variant");
        QTest::addColumn<int>("dots");
        QTest::addColumn<int>("perRing");
        QTest::addColumn<double>("fieldOfView");
        QTest::newRow("turning") << Variant::Animated << 1800 << 60 << 84.0;
        QTest::newRow("still") << Variant::Static << 336 << 24 << 55.0;
    }
    void variantsLayOutTheirDotsOnTheSphere()
    {
        QFETCH(Variant, variant);
        QFETCH(int, dots);
        QFETCH(int, perRing);
        QFETCH(double, fieldOfView);
        const GlobeScene scene(variant);
        QCOMPARE(scene.fieldOfViewDegrees(), fieldOfView);
        // The dots hang under the spin node when the globe turns, else
        // straight under the tilt node.
        QCOMPARE(scene.childCount(scene.tiltIndex(), Kind::Spin), variant == Variant::Animated ? 1 : 0);
        QCOMPARE(scene.childCount(scene.spins() ? scene.spinIndex() : scene.tiltIndex(), Kind::Dot), dots);

        // Rings evenly spaced from pole to pole, dots evenly spaced around
        // each ring, all on the sphere.
        const double pi = std::numbers::pi;
        const auto positions = scene.dotPositions();
        QCOMPARE(positions.size(), size_t(dots));
        const int rings = dots / perRing;
        // Camera, projection and layout together: none of it is cut off, in
        // a tall phone view when it turns, in a square icon when still.
        const float aspect = scene.spins() ? 390.0f / 650.0f : 1.0f;
        const QMatrix4x4 transform = scene.projectionMatrix(aspect) * GlobeScene::viewMatrix()
            * scene.worldTransform(scene.dotParentIndex(), 30);
        for (size_t k = 0; k < positions.size(); ++k) {
            const auto &p = positions[k];
            const QVector3D ndc = transform.map(QVector3D(float(p.x), float(p.y), float(p.z)));
            QVERIFY(std::abs(ndc.x()) < 1 && std::abs(ndc.y()) < 1 && std::abs(ndc.z()) < 1);
            const double lat = -pi / 2 + double(k / perRing) * pi / (rings - 1);
            const double lon = double(k % perRing) * 2 * pi / perRing;
            QVERIFY(std::hypot(p.x - 55 * std::cos(lat) * std::cos(lon), p.y - 55 * std::sin(lat),
                               p.z - 55 * std::cos(lat) * std::sin(lon))
                    < 1e-4);
        }
    }

    void cameraLooksAtTheCentreFromItsFixedPointOrWhereTheUserTurnedIt_data()
    {
        QTest::addColumn<double>("dx");
        QTest::addColumn<double>("dy");
        QTest::addColumn<float>("yaw");
        QTest::addColumn<float>("pitch");
        // A drag across the view's height (600 px) is half a turn.
        QTest::newRow("fixed") << 0.0 << 0.0 << 0.0f << 0.0f;
        QTest::newRow("sideways") << 150.0 << 0.0 << -45.0f << 0.0f;
        QTest::newRow("down") << 0.0 << 60.0 << 0.0f << 18.0f;
        QTest::newRow("stops short of the pole") << 0.0 << 9000.0 << 0.0f << 85.0f - 14.9245f;
        QTest::newRow("not a number") << qQNaN() << 10.0 << 0.0f << 0.0f;
    }
    void cameraLooksAtTheCentreFromItsFixedPointOrWhereTheUserTurnedIt()
    {
        QFETCH(double, dx);
        QFETCH(double, dy);
        QFETCH(float, yaw);
        QFETCH(float, pitch);
        const QVector3D fixed(119.66445922851562f, 32.0f, 9.714912414550781f);
        QCOMPARE(GlobeScene::cameraPosition(), fixed);
        const GlobeScene::CameraTurn turn = GlobeScene::turned({}, dx, dy, 600);
        QVERIFY(std::abs(turn.yaw - yaw) < 1e-3f);
        QVERIFY(std::abs(turn.pitch - pitch) < 1e-3f);
        const QVector3D camera = GlobeScene::cameraPosition(turn);
        QVERIFY(std::abs(std::asin(camera.y() / camera.length()) * 180 / std::numbers::pi - (14.9245 + pitch)) < 1e-3);

        // The view puts the camera at its origin and the centre straight
        // ahead, with the world's y kept up (no roll).
        const QMatrix4x4 view = GlobeScene::viewMatrix(turn);
        QVERIFY(view.map(camera).length() < 1e-3f);
        QVERIFY((view.map(QVector3D()) - QVector3D(0, 0, -fixed.length())).length() < 1e-3f);
        QVERIFY(std::abs(view.row(0).y()) < 1e-6f);
    }

    // The spin node turns the dots about the tilted axis: the poles stay put,
    // tipped 45 degrees towards -z. (The still globe has no spin node.)
    void spinTurnsAboutTheTiltedAxis()
    {
        const GlobeScene turning(Variant::Animated);
        const float s = 55 * std::sqrt(0.5f);
        // Where a pole and a point on the equator go at each spin.
        const struct
        {
            float spin;
            QVector3D from, to;
        } cases[] = {{0, {0, 55, 0}, {0, s, -s}},   {200, {0, 55, 0}, {0, s, -s}},
                     {90, {0, -55, 0}, {0, -s, s}}, {90, {55, 0, 0}, {0, -s, -s}}};
        for (const auto &c : cases) {
            const QMatrix4x4 dots = turning.worldTransform(turning.dotParentIndex(), c.spin);
            QVERIFY((dots.map(c.from) - c.to).length() < 1e-3f);
        }
    }

    // What the renderer is given: each dot of the scene twice (far half's
    // copy, then near half's), four corners spanning the item, two triangles
    // over each square.
    void geometryHoldsEveryDotOfTheScene()
    {
        const GlobeScene scene(Variant::Static);
        GlobeGeometry geometry(scene);
        geometry.setItemSize(QSizeF(390, 650));
        const auto dots = scene.dotPositions();
        const int n = int(dots.size());
        QCOMPARE(geometry.vertexCount(), 2 * n * 4);
        QCOMPARE(geometry.indexCount(), 2 * n * 6);
        for (int k = 0; k < 2 * n; ++k) {
            const auto &dot = dots[size_t(k % n)];
            QSet<QPair<float, float>> corners;
            QSet<int> used;
            for (int c = 0; c < 6; ++c) {
                const GlobeGeometry::Vertex &vertex = geometry.vertices()[k * 4 + c % 4];
                QCOMPARE(QVector3D(vertex.x, vertex.y, vertex.z), QVector3D(float(dot.x), float(dot.y), float(dot.z)));
                QCOMPARE(vertex.nearHalf, k < n ? 0.0f : 1.0f);
                corners.insert({vertex.cornerX, vertex.cornerY});
                used.insert(geometry.indexDataAsUShort()[k * 6 + c] - k * 4);
            }
            QCOMPARE(corners, (QSet<QPair<float, float>>{{0, 0}, {390, 0}, {0, 650}, {390, 650}}));
            QCOMPARE(used, (QSet<int>{0, 1, 2, 3})); // this square's own corners, all of them
        }
    }
};

QTEST_MAIN(TestDecor)
#include "tst_decor.moc"
