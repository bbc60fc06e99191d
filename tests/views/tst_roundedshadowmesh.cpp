#include "views/RoundedShadowMesh.h"

#include <QRandomGenerator>
#include <QTest>
#include <algorithm>
#include <cmath>
#include <optional>

namespace {

// Signed distance from the outline of a rounded `box` whose top-left
// corner is at the origin; negative inside.
qreal outlineDistance(QPointF p, QSizeF box, qreal cornerRadius)
{
    const qreal halfW = box.width() / 2, halfH = box.height() / 2;
    const qreal r = std::clamp(cornerRadius, 0.0, std::min(halfW, halfH));
    const qreal qx = std::abs(p.x() - halfW) - halfW + r;
    const qreal qy = std::abs(p.y() - halfH) - halfH + r;
    return std::hypot(std::max(qx, 0.0), std::max(qy, 0.0)) + std::min(std::max(qx, qy), 0.0) - r;
}

// The coverage the mesh gives at `p`, interpolated inside the triangle
// holding it; nothing when no triangle does.
std::optional<qreal> meshCoverage(const RoundedShadowMesh::Mesh &mesh, QPointF p)
{
    for (std::size_t i = 0; i + 2 < mesh.indices.size(); i += 3) {
        const auto &a = mesh.vertices[mesh.indices[i]];
        const auto &b = mesh.vertices[mesh.indices[i + 1]];
        const auto &c = mesh.vertices[mesh.indices[i + 2]];
        const QPointF ab = b.position - a.position, ac = c.position - a.position, ap = p - a.position;
        const qreal det = ab.x() * ac.y() - ab.y() * ac.x();
        if (std::abs(det) < 1e-9)
            continue;
        const qreal u = (ap.x() * ac.y() - ap.y() * ac.x()) / det;
        const qreal v = (ab.x() * ap.y() - ab.y() * ap.x()) / det;
        constexpr qreal slack = -1e-9;
        if (u >= slack && v >= slack && u + v <= 1 - slack)
            return a.coverage + u * (b.coverage - a.coverage) + v * (c.coverage - a.coverage);
    }
    return std::nullopt;
}

} // namespace

class TestRoundedShadowMesh : public QObject
{
    Q_OBJECT

private slots:
    void coverage_data()
    {
        QTest::addColumn<qreal>("distance");
        QTest::addColumn<qreal>("sigma");
        QTest::addColumn<qreal>("expected");
        QTest::newRow("on the outline") << 0.0 << 5.0 << 0.5;
        QTest::newRow("one sigma out") << 5.0 << 5.0 << 0.158655;
        QTest::newRow("three sigmas out") << 24.0 << 8.0 << 0.0013499;
        QTest::newRow("sigma of zero is a hard edge") << -0.5 << 0.0 << 1.0;
    }
    void coverage()
    {
        QFETCH(qreal, distance);
        QFETCH(qreal, sigma);
        QFETCH(qreal, expected);
        QVERIFY2(std::abs(RoundedShadowMesh::coverage(distance, sigma) - expected) < 1e-5,
                 qPrintable(QString::number(RoundedShadowMesh::coverage(distance, sigma))));
    }

    // The sizes the app's shadows come in, and edge cases of the clamp.
    void mesh_data()
    {
        QTest::addColumn<QSizeF>("box");
        QTest::addColumn<qreal>("cornerRadius");
        QTest::addColumn<qreal>("sigma");
        QTest::newRow("menu") << QSizeF(250, 300) << 13.0 << 16.0;
        QTest::newRow("capsule chip") << QSizeF(80, 36) << 18.0 << 6.0;
        QTest::newRow("square corners") << QSizeF(390, 60) << 0.0 << 8.0;
        QTest::newRow("radius past half the box") << QSizeF(30, 20) << 50.0 << 4.0;
        QTest::newRow("box thinner than the blur") << QSizeF(200, 6) << 2.0 << 10.0;
    }
    void mesh()
    {
        QFETCH(QSizeF, box);
        QFETCH(qreal, cornerRadius);
        QFETCH(qreal, sigma);
        const qreal margin = std::ceil(3 * sigma);
        const RoundedShadowMesh::Mesh mesh = RoundedShadowMesh::build(box, cornerRadius, sigma, margin);
        QVERIFY(!mesh.indices.empty());
        QVERIFY(std::all_of(mesh.indices.begin(), mesh.indices.end(),
                            [&](quint16 i) { return i < mesh.vertices.size(); }));

        // Each vertex carries the blur's strength where it stands.
        for (const auto &v : mesh.vertices) {
            const qreal exact = RoundedShadowMesh::coverage(outlineDistance(v.position, box, cornerRadius), sigma);
            QVERIFY2(std::abs(v.coverage - exact) < 1e-6,
                     qPrintable(QStringLiteral("vertex at %1,%2").arg(v.position.x()).arg(v.position.y())));
        }

        // Everywhere the shadow shows, the mesh is drawn and within a
        // colour step of the blur.
        QRandomGenerator random(7);
        for (int n = 0; n < 300; ++n) {
            const QPointF p(-margin + random.generateDouble() * (box.width() + 2 * margin),
                            -margin + random.generateDouble() * (box.height() + 2 * margin));
            const qreal d = outlineDistance(p, box, cornerRadius);
            if (d > margin - 0.5)
                continue;
            const std::optional<qreal> drawn = meshCoverage(mesh, p);
            const QByteArray at = QByteArray::number(p.x()) + ',' + QByteArray::number(p.y());
            QVERIFY2(drawn && std::abs(*drawn - RoundedShadowMesh::coverage(d, sigma)) < 1.0 / 255, at.constData());
        }
    }

    void badInputGivesNoMeshOrAFiniteOne()
    {
        const qreal inf = std::numeric_limits<qreal>::infinity();
        QVERIFY(RoundedShadowMesh::build(QSizeF(inf, 10), 4, 5, 15).vertices.empty());
        QVERIFY(RoundedShadowMesh::build(QSizeF(10, 10), 4, std::nan(""), 15).vertices.empty());
        for (const auto &mesh : {RoundedShadowMesh::build(QSizeF(-5, -5), -3, -1, -2),
                                 RoundedShadowMesh::build(QSizeF(0, 0), 0, 0, 0)}) {
            QVERIFY(std::all_of(mesh.vertices.begin(), mesh.vertices.end(), [](const auto &v) {
                return std::isfinite(v.position.x()) && std::isfinite(v.position.y()) && std::isfinite(v.coverage);
            }));
        }
    }
};

QTEST_GUILESS_MAIN(TestRoundedShadowMesh)
#include "tst_roundedshadowmesh.moc"
