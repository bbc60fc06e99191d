#include "decor/DotSphereGeometry.h"
#include "decor/GlobeInstancing.h"
#include "decor/GlobeScene.h"
#include "decor/GlobeSceneModel.h"

#include <QTest>

#include <cmath>
#include <numbers>

using Variant = GlobeScene::Variant;
using Kind = GlobeScene::NodeKind;
Q_DECLARE_METATYPE(GlobeScene::Variant)

namespace {
double distance(const GlobeScene::Position &p, double x, double y, double z)
{
    return std::hypot(p.x - x, p.y - y, p.z - z);
}

// How far a dot lies from the exact point at this latitude and longitude.
double offExact(const GlobeScene::Position &p, double lat, double lon)
{
    const double r = 55 * std::cos(lat);
    return distance(p, r * std::cos(lon), 55 * std::sin(lat), r * std::sin(lon));
}
} // namespace

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
        const auto &nodes = scene.nodes();
        QCOMPARE(nodes[scene.tiltIndex()].parent, scene.rootIndex());
        QCOMPARE(scene.childCount(scene.tiltIndex(), Kind::Spin), variant == Variant::Animated ? 1 : 0);
        const int dotParent = scene.spins() ? scene.spinIndex() : scene.tiltIndex();
        QCOMPARE(nodes[dotParent].parent, scene.spins() ? scene.tiltIndex() : scene.rootIndex());
        QCOMPARE(scene.childCount(dotParent, Kind::Dot), dots);

        // First and last rings sit on the poles; a ring keeps one latitude.
        const auto positions = scene.dotPositions();
        QCOMPARE(positions.size(), size_t(dots));
        for (int j = 0; j < perRing; ++j) {
            QVERIFY(distance(positions[j], 0, -55, 0) < 1e-4);
            QVERIFY(distance(positions[positions.size() - perRing + j], 0, 55, 0) < 1e-4);
        }
        for (size_t k = 0; k < positions.size(); ++k) {
            QVERIFY(std::abs(distance(positions[k], 0, 0, 0) - 55.0) < 1e-4);
            QCOMPARE(positions[k].y, positions[k - k % perRing].y);
        }
    }

    void turningGlobeIsExactAndStillGlobeKeepsSinglePrecision()
    {
        const double pi = std::numbers::pi;
        const auto turning = GlobeScene(Variant::Animated).dotPositions();
        for (const auto &[ring, j] : {std::pair{7, 13}, {14, 0}, {22, 59}, {1, 31}}) {
            const auto &p = turning[size_t(ring * 60 + j)];
            QVERIFY(offExact(p, -pi / 2 + ring * pi / 29, j * 2 * pi / 60) < 1e-12);
        }

        // The still globe keeps the float arithmetic its pictures were made with.
        const auto still = GlobeScene(Variant::Static).dotPositions();
        const float piF = 3.1415925f;
        for (const auto &[ring, dot] : {std::pair{3, 5}, {6, 11}, {10, 23}}) {
            const auto &p = still[size_t(ring * 24 + dot)];
            const float latF = float(ring) * piF / 13.0f - piF / 2.0f;
            const float lonF = float(dot + dot) * piF / 24.0f;
            QCOMPARE(p.x, double(55.0f * std::cos(latF) * std::cos(lonF)));
            QCOMPARE(p.y, double(55.0f * std::sin(latF)));
            QCOMPARE(p.z, double(55.0f * std::cos(latF) * std::sin(lonF)));
            const double off = offExact(p, ring * pi / 13 - pi / 2, (dot + dot) * pi / 24);
            QVERIFY(off < 1e-4 && off > 1e-7);
        }
    }

    void cameraLooksAtTheCentreFromItsFixedPoint()
    {
        const QVector3D position(119.66445922851562f, 32.0f, 9.714912414550781f);
        QCOMPARE(GlobeScene::cameraPosition(), position);
        const GlobeScene scene(Variant::Static);
        const auto &camera = scene.nodes()[scene.cameraIndex()].position;
        QCOMPARE(QVector3D(float(camera.x), float(camera.y), float(camera.z)), position);

        // Hanging at (0, 0, distance) inside the turned pivot puts the camera
        // on its fixed point, looking straight at the centre, without roll.
        const QQuaternion pivot = GlobeScene::cameraLookAtRotation();
        const QVector3D placed = pivot.rotatedVector(QVector3D(0, 0, GlobeScene::cameraDistance()));
        QVERIFY((placed - position).length() < 1e-3f);
        const QVector3D forward = pivot.rotatedVector(QVector3D(0, 0, -1));
        QVERIFY((forward + position.normalized()).length() < 1e-5f);
        QVERIFY(std::abs(pivot.rotatedVector(QVector3D(1, 0, 0)).y()) < 1e-6f);
        QVERIFY(pivot.rotatedVector(QVector3D(0, 1, 0)).y() > 0.9f);
    }

    void instanceTableFollowsTheVariant()
    {
        GlobeSceneModel model;
        QCOMPARE(model.spinPeriod(), 65000);
        QVERIFY(std::abs(model.tiltDegrees() + 45.0) < 1e-4);
        GlobeInstancing instancing;
        instancing.setScene(&model);
        QCOMPARE(instancing.instanceCount(), 1800);
        const GlobeScene::Position dot = model.scene().dotPositions()[901];
        QVERIFY((instancing.instancePosition(901) - QVector3D(dot.x, dot.y, dot.z)).length() < 1e-4f);
        // Dots are scaled from the mesh's radius to the dot radius.
        QVERIFY((instancing.instanceScale(5) - QVector3D(0.8f, 0.8f, 0.8f)).length() < 1e-6f);
        instancing.setMeshRadius(50);
        QVERIFY((instancing.instanceScale(5) - QVector3D(0.016f, 0.016f, 0.016f)).length() < 1e-6f);

        model.setVariant(GlobeSceneModel::Static);
        QCOMPARE(model.spinPeriod(), 0);
        QCOMPARE(instancing.instanceCount(), 336);
        QVERIFY((instancing.instanceScale(0) - QVector3D(0.06f, 0.06f, 0.06f)).length() < 1e-6f);
        QCOMPARE(GlobeScene::staticDotColor(true), QColor(255, 255, 255));
        QCOMPARE(GlobeScene::staticDotColor(false), QColor(0, 0, 0));
    }

    void dotMeshIsARoundOutwardFacingSphere()
    {
        DotSphereGeometry sphere;
        sphere.setSubdivisions(99);
        QCOMPARE(sphere.subdivisions(), DotSphereGeometry::maximumSubdivisions);
        sphere.setSubdivisions(2);
        QCOMPARE(sphere.vertexCount(), 162);
        QCOMPARE(sphere.triangleCount(), 320);
        const QByteArray vertexData = sphere.vertexData();
        const QByteArray indexData = sphere.indexData();
        QCOMPARE(sphere.stride(), 24);
        QCOMPARE(vertexData.size(), 162 * 24);
        QCOMPARE(indexData.size(), 320 * 3 * 2);
        // Position and normal per vertex, both the unit vector.
        const auto *v = reinterpret_cast<const float *>(vertexData.constData());
        auto point = [&](int i) { return QVector3D(v[i * 6], v[i * 6 + 1], v[i * 6 + 2]); };
        for (int i = 0; i < 162; ++i) {
            QVERIFY(std::abs(point(i).length() - 1.0f) < 1e-5f);
            QCOMPARE(QVector3D(v[i * 6 + 3], v[i * 6 + 4], v[i * 6 + 5]), point(i));
        }
        // Counter-clockwise seen from outside, so back faces are the inner ones.
        const auto *index = reinterpret_cast<const quint16 *>(indexData.constData());
        for (int t = 0; t < 320; ++t) {
            const QVector3D a = point(index[t * 3]), b = point(index[t * 3 + 1]), c = point(index[t * 3 + 2]);
            QVERIFY(QVector3D::dotProduct(QVector3D::crossProduct(b - a, c - a), a + b + c) > 0);
        }
    }
};

QTEST_MAIN(TestGlobeScene)
#include "tst_globescene.moc"
