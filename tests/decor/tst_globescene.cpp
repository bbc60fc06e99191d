#include "decor/DotSphereGeometry.h"
#include "decor/GlobeInstancing.h"
#include "decor/GlobeScene.h"
#include "decor/GlobeSceneModel.h"

#include <QSignalSpy>
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
} // namespace

class TestGlobeScene : public QObject
{
    Q_OBJECT

private slots:
    void dotsHangUnderTheSpinNodeOrTheTiltNode()
    {
        const GlobeScene turning(Variant::Animated);
        QVERIFY(turning.spinIndex() > 0);
        QCOMPARE(turning.nodes()[turning.spinIndex()].kind, Kind::Spin);
        QCOMPARE(turning.nodes()[turning.spinIndex()].parent, turning.tiltIndex());
        QCOMPARE(turning.childCount(turning.spinIndex(), Kind::Dot), 1800);
        QCOMPARE(turning.childCount(turning.tiltIndex(), Kind::Dot), 0);
        QCOMPARE(turning.childCount(turning.tiltIndex(), Kind::Spin), 1);
        QCOMPARE(turning.dotPositions().size(), size_t(1800));

        const GlobeScene still(Variant::Static);
        QCOMPARE(still.spinIndex(), -1);
        QCOMPARE(still.childCount(still.tiltIndex(), Kind::Dot), 336);
        QCOMPARE(still.childCount(still.tiltIndex(), Kind::Spin), 0);
        QCOMPARE(still.dotPositions().size(), size_t(336));

        for (const GlobeScene *scene : {&turning, &still}) {
            QCOMPARE(scene->nodes()[scene->rootIndex()].parent, -1);
            QCOMPARE(scene->nodes()[scene->cameraIndex()].kind, Kind::Camera);
            QCOMPARE(scene->nodes()[scene->cameraIndex()].parent, scene->rootIndex());
            QCOMPARE(scene->nodes()[scene->tiltIndex()].kind, Kind::Tilt);
            QCOMPARE(scene->nodes()[scene->tiltIndex()].parent, scene->rootIndex());
        }
    }

    void firstAndLastRingsSitOnThePoles_data()
    {
        QTest::addColumn<Variant>("variant");
        QTest::addColumn<int>("perRing");
        QTest::newRow("turning") << Variant::Animated << 60;
        QTest::newRow("still") << Variant::Static << 24;
    }

    void firstAndLastRingsSitOnThePoles()
    {
        QFETCH(Variant, variant);
        QFETCH(int, perRing);
        const GlobeScene scene(variant);
        const auto dots = scene.dotPositions();
        QCOMPARE(scene.dotsPerRing(), perRing);
        for (int j = 0; j < perRing; ++j) {
            QVERIFY2(distance(dots[j], 0, -55, 0) < 1e-4, qPrintable(QString::number(j)));
            QVERIFY2(distance(dots[dots.size() - perRing + j], 0, 55, 0) < 1e-4, qPrintable(QString::number(j)));
        }
        // Every dot lies on the sphere, and a ring keeps one latitude.
        for (size_t k = 0; k < dots.size(); ++k) {
            QVERIFY(std::abs(std::hypot(dots[k].x, dots[k].y, dots[k].z) - 55.0) < 1e-4);
            QCOMPARE(dots[k].y, dots[k - k % perRing].y);
        }
    }

    void turningGlobeIsLaidOutInDoublePrecision()
    {
        const GlobeScene scene(Variant::Animated);
        const auto dots = scene.dotPositions();
        const double pi = std::numbers::pi;
        int differsFromFloat = 0;
        for (const auto &[ring, j] : {std::pair{7, 13}, {14, 0}, {22, 59}, {1, 31}}) {
            const auto &p = dots[size_t(ring * 60 + j)];
            const double lat = -pi / 2 + ring * pi / 29;
            const double lon = j * 2 * pi / 60;
            QVERIFY(distance(p, 55 * std::cos(lat) * std::cos(lon), 55 * std::sin(lat),
                             55 * std::cos(lat) * std::sin(lon))
                    < 1e-12);
            const float latF = -float(pi) / 2 + float(ring) * float(pi) / 29;
            const float lonF = float(j) * 2 * float(pi) / 60;
            const float xF = 55.0f * std::cos(latF) * std::cos(lonF);
            if (std::abs(p.x - double(xF)) > 1e-7)
                ++differsFromFloat;
        }
        QVERIFY(differsFromFloat > 0);
        // Longitudes step by 2π/60 around a ring.
        const auto &a = dots[10 * 60 + 5];
        const auto &b = dots[10 * 60 + 6];
        const double step = std::remainder(std::atan2(b.z, b.x) - std::atan2(a.z, a.x), 2 * pi);
        QVERIFY(std::abs(step - 2 * pi / 60) < 1e-12);
    }

    void stillGlobeKeepsItsSinglePrecisionArithmetic_data()
    {
        QTest::addColumn<int>("ring");
        QTest::addColumn<int>("dot");
        QTest::newRow("3,5") << 3 << 5;
        QTest::newRow("6,11") << 6 << 11;
        QTest::newRow("10,23") << 10 << 23;
    }

    void stillGlobeKeepsItsSinglePrecisionArithmetic()
    {
        QFETCH(int, ring);
        QFETCH(int, dot);
        const GlobeScene scene(Variant::Static);
        const auto &stored = scene.dotPositions()[size_t(ring * 24 + dot)];

        const float piF = 3.1415925f;
        const float latF = float(ring) * piF / 13.0f - piF / 2.0f;
        const float lonF = float(dot + dot) * piF / 24.0f;
        QCOMPARE(stored.x, double(55.0f * std::cos(latF) * std::cos(lonF)));
        QCOMPARE(stored.y, double(55.0f * std::sin(latF)));
        QCOMPARE(stored.z, double(55.0f * std::cos(latF) * std::sin(lonF)));

        const double pi = std::numbers::pi;
        const double lat = ring * pi / 13 - pi / 2;
        const double lon = (dot + dot) * pi / 24;
        const double dx = stored.x - 55 * std::cos(lat) * std::cos(lon);
        const double dy = stored.y - 55 * std::sin(lat);
        const double dz = stored.z - 55 * std::cos(lat) * std::sin(lon);
        // Close to the exact layout, but not the double-precision result.
        QVERIFY(std::hypot(dx, dy, dz) < 1e-4);
        QVERIFY(std::hypot(dx, dy, dz) > 1e-7);
    }

    void cameraLooksAtTheCentreFromItsFixedPoint()
    {
        QCOMPARE(GlobeScene::cameraX, 119.66445922851562f);
        QCOMPARE(GlobeScene::cameraY, 32.0f);
        QCOMPARE(GlobeScene::cameraZ, 9.714912414550781f);
        const QVector3D position = GlobeScene::cameraPosition();
        QVERIFY(std::abs(GlobeScene::cameraDistance() - 124.25f) < 0.01f);
        const double elevation = std::asin(position.y() / position.length()) * 180 / std::numbers::pi;
        QVERIFY(std::abs(elevation - 14.9) < 0.05);

        // Hanging at (0, 0, distance) inside the turned pivot puts the camera
        // on its fixed point ...
        const QQuaternion pivot = GlobeScene::cameraLookAtRotation();
        const QVector3D placed = pivot.rotatedVector(QVector3D(0, 0, GlobeScene::cameraDistance()));
        QVERIFY((placed - position).length() < 1e-3f);
        // ... looking straight at the centre, without roll.
        const QVector3D forward = pivot.rotatedVector(QVector3D(0, 0, -1));
        QVERIFY((forward + position.normalized()).length() < 1e-5f);
        QVERIFY(std::abs(pivot.rotatedVector(QVector3D(1, 0, 0)).y()) < 1e-6f);
        QVERIFY(pivot.rotatedVector(QVector3D(0, 1, 0)).y() > 0.9f);

        const GlobeScene scene(Variant::Static);
        const auto &camera = scene.nodes()[scene.cameraIndex()].position;
        QCOMPARE(camera.x, double(GlobeScene::cameraX));
        QCOMPARE(camera.y, 32.0);
        QCOMPARE(camera.z, double(GlobeScene::cameraZ));
    }

    void variantsDifferInTheirConstants()
    {
        const GlobeScene turning(Variant::Animated);
        const GlobeScene still(Variant::Static);
        QCOMPARE(turning.fieldOfViewDegrees(), 84.0);
        QCOMPARE(still.fieldOfViewDegrees(), 55.0);
        QCOMPARE(turning.dotRadius(), 0.8);
        QCOMPARE(still.dotRadius(), 3.0);
        QVERIFY(turning.spins());
        QVERIFY(!still.spins());
        QCOMPARE(GlobeScene::tiltAngle, -0.7853981f);
        QCOMPARE(GlobeScene::spinPeriodMs, 65000);

        GlobeSceneModel model;
        QCOMPARE(model.spinPeriod(), 65000);
        QVERIFY(std::abs(model.tiltDegrees() + 45.0) < 1e-4);
        QSignalSpy changed(&model, &GlobeSceneModel::variantChanged);
        model.setVariant(GlobeSceneModel::Static);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(model.dotCount(), 336);
        QCOMPARE(model.fieldOfView(), 55.0);
        QCOMPARE(model.spinPeriod(), 0);
        QVERIFY(!model.spins());
    }

    void stillDotsAreWhiteInTheDarkAndBlackInTheLight()
    {
        QCOMPARE(GlobeScene::staticDotColor(true), QColor(255, 255, 255));
        QCOMPARE(GlobeScene::staticDotColor(false), QColor(0, 0, 0));
        GlobeSceneModel model;
        QCOMPARE(model.dotColorFor(true), QColor(Qt::white));
        QCOMPARE(model.dotColorFor(false), QColor(Qt::black));
    }

    void instanceTablePlacesEveryDot()
    {
        GlobeSceneModel model;
        GlobeInstancing instancing;
        QSignalSpy counted(&instancing, &GlobeInstancing::instanceCountChanged);
        instancing.setScene(&model);
        QCOMPARE(instancing.instanceCount(), 1800);
        QCOMPARE(counted.size(), 1);

        const auto dots = model.scene().dotPositions();
        for (int i : {0, 1, 901, 1799}) {
            const QVector3D expected(float(dots[size_t(i)].x), float(dots[size_t(i)].y), float(dots[size_t(i)].z));
            QVERIFY((instancing.instancePosition(i) - expected).length() < 1e-4f);
            QVERIFY((instancing.instanceScale(i) - QVector3D(0.8f, 0.8f, 0.8f)).length() < 1e-6f);
        }

        // The built-in sphere has radius 50: dots shrink to match.
        instancing.setMeshRadius(50);
        QVERIFY((instancing.instanceScale(5) - QVector3D(0.016f, 0.016f, 0.016f)).length() < 1e-6f);

        model.setVariant(GlobeSceneModel::Static);
        QCOMPARE(instancing.instanceCount(), 336);
        QVERIFY((instancing.instanceScale(0) - QVector3D(0.06f, 0.06f, 0.06f)).length() < 1e-6f);
    }

    void dotMeshIsARoundOutwardFacingSphere_data()
    {
        QTest::addColumn<int>("subdivisions");
        QTest::addColumn<int>("triangles");
        QTest::addColumn<int>("vertices");
        QTest::newRow("icosahedron") << 0 << 20 << 12;
        QTest::newRow("once") << 1 << 80 << 42;
        QTest::newRow("twice") << 2 << 320 << 162;
    }

    void dotMeshIsARoundOutwardFacingSphere()
    {
        QFETCH(int, subdivisions);
        QFETCH(int, triangles);
        QFETCH(int, vertices);
        DotSphereGeometry sphere;
        sphere.setSubdivisions(subdivisions);
        QCOMPARE(sphere.triangleCount(), triangles);
        QCOMPARE(sphere.vertexCount(), vertices);

        const QByteArray vertexData = sphere.vertexData();
        const QByteArray indexData = sphere.indexData();
        QCOMPARE(sphere.stride(), 24);
        QCOMPARE(vertexData.size(), vertices * 24);
        QCOMPARE(indexData.size(), triangles * 3 * 2);
        const auto *v = reinterpret_cast<const float *>(vertexData.constData());
        auto point = [&](int i) { return QVector3D(v[i * 6], v[i * 6 + 1], v[i * 6 + 2]); };
        for (int i = 0; i < vertices; ++i) {
            QVERIFY(std::abs(point(i).length() - 1.0f) < 1e-5f);
            QCOMPARE(QVector3D(v[i * 6 + 3], v[i * 6 + 4], v[i * 6 + 5]), point(i));
        }
        // Counter-clockwise seen from outside, so back faces are the inner ones.
        const auto *index = reinterpret_cast<const quint16 *>(indexData.constData());
        for (int t = 0; t < triangles; ++t) {
            const QVector3D a = point(index[t * 3]), b = point(index[t * 3 + 1]), c = point(index[t * 3 + 2]);
            QVERIFY(QVector3D::dotProduct(QVector3D::crossProduct(b - a, c - a), a + b + c) > 0);
        }
    }

    void dotMeshDetailIsClamped()
    {
        DotSphereGeometry sphere;
        sphere.setSubdivisions(-3);
        QCOMPARE(sphere.subdivisions(), 0);
        sphere.setSubdivisions(99);
        QCOMPARE(sphere.subdivisions(), DotSphereGeometry::maximumSubdivisions);
    }
};

QTEST_MAIN(TestGlobeScene)
#include "tst_globescene.moc"
