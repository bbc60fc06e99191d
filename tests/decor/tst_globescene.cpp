#include "decor/GlobeGeometry.h"
#include "decor/GlobeScene.h"

#include <QSet>
#include <QTest>

#include <cmath>
#include <numbers>

using Variant = GlobeScene::Variant;
using Kind = GlobeScene::NodeKind;
Q_DECLARE_METATYPE(GlobeScene::Variant)

class TestGlobeScene : public QObject
{
    Q_OBJECT

private slots:
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
        for (size_t k = 0; k < positions.size(); ++k) {
            const auto &p = positions[k];
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
        const GlobeScene scene(Variant::Static);
        const auto &node = scene.nodes()[scene.cameraIndex()].position;
        QCOMPARE(QVector3D(float(node.x), float(node.y), float(node.z)), fixed);
        QCOMPARE(GlobeScene::cameraPosition(), fixed);
        const GlobeScene::CameraTurn turn = GlobeScene::turned({}, dx, dy, 600);
        QVERIFY(std::abs(turn.yaw - yaw) < 1e-3f);
        QVERIFY(std::abs(turn.pitch - pitch) < 1e-3f);
        const QVector3D camera = GlobeScene::cameraPosition(turn);
        QVERIFY(std::abs(camera.length() - fixed.length()) < 1e-3f);
        QVERIFY(std::abs(std::asin(camera.y() / camera.length()) * 180 / std::numbers::pi - (14.9245 + pitch)) < 1e-3);

        // The view puts the camera at its origin and the centre straight
        // ahead, with the world's y kept up (no roll).
        const QMatrix4x4 view = GlobeScene::viewMatrix(turn);
        QVERIFY(view.map(camera).length() < 1e-3f);
        QVERIFY((view.map(QVector3D()) - QVector3D(0, 0, -fixed.length())).length() < 1e-3f);
        QVERIFY(std::abs(view.row(0).y()) < 1e-6f);
        QVERIFY(view.row(1).y() > 0);
    }

    // The spin node turns the dots about the tilted axis: the poles stay put,
    // tipped 45 degrees towards -z; the still globe ignores any spin.
    void spinTurnsAboutTheTiltedAxis()
    {
        const GlobeScene turning(Variant::Animated);
        const GlobeScene still(Variant::Static);
        const float s = 55 * std::sqrt(0.5f);
        // Where a pole and a point on the equator go at each spin.
        const struct
        {
            float spin;
            QVector3D from, to;
        } cases[] = {{0, {0, 55, 0}, {0, s, -s}},   {200, {0, 55, 0}, {0, s, -s}},
                     {90, {0, -55, 0}, {0, -s, s}}, {90, {55, 0, 0}, {0, -s, -s}}};
        const int stillDots = still.dotParentIndex();
        for (const auto &c : cases) {
            const QMatrix4x4 dots = turning.worldTransform(turning.dotParentIndex(), c.spin);
            QVERIFY((dots.map(c.from) - c.to).length() < 1e-3f);
            QCOMPARE(still.worldTransform(stillDots, c.spin), still.worldTransform(stillDots, 0));
        }
    }

    // Camera, projection and layout together: the globe is as large as its
    // field of view makes it and none of it is cut off.
    void globeFitsTheViewAsDrawn_data()
    {
        QTest::addColumn<Variant>("variant");
        QTest::addColumn<double>("aspect");
        // How far out the outermost dot reaches, in half the view's width
        // or height, whichever it reaches further into.
        QTest::addColumn<double>("reach");
        QTest::newRow("turning, phone") << Variant::Animated << 390.0 / 650.0 << 0.91;
        QTest::newRow("turning, tablet") << Variant::Animated << 1024.0 / 1100.0 << 0.59;
        QTest::newRow("still, icon") << Variant::Static << 1.0 << 0.95;
    }
    void globeFitsTheViewAsDrawn()
    {
        QFETCH(Variant, variant);
        QFETCH(double, aspect);
        QFETCH(double, reach);
        const GlobeScene scene(variant);
        const QMatrix4x4 transform = scene.projectionMatrix(float(aspect)) * GlobeScene::viewMatrix()
            * scene.worldTransform(scene.dotParentIndex(), 30);
        double widest = 0;
        for (const auto &p : scene.dotPositions()) {
            const QVector3D ndc = transform.map(QVector3D(float(p.x), float(p.y), float(p.z)));
            QVERIFY(std::abs(ndc.x()) < 1 && std::abs(ndc.y()) < 1 && std::abs(ndc.z()) < 1);
            widest = std::max(widest, double(std::max(std::abs(ndc.x()), std::abs(ndc.y()))));
        }
        QVERIFY2(std::abs(widest - reach) < 0.02, qPrintable(QString::number(widest)));
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

QTEST_MAIN(TestGlobeScene)
#include "tst_globescene.moc"
