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
        if (u >= -1e-9 && v >= -1e-9 && u + v <= 1 + 1e-9)
            return a.coverage + u * (b.coverage - a.coverage) + v * (c.coverage - a.coverage);
    }
    return std::nullopt;
}

} // namespace

class TestRoundedShadowMesh : public QObject
{
    Q_OBJECT

private slots:
    // For the shapes the app's shadows take and the clamp's edge cases:
    // every vertex carries the blur's strength where it stands, and
    // everywhere the shadow shows the mesh is drawn within a colour step
    // of the blur, so no holes and no rings too far apart.
    void meshFollowsTheBlur()
    {
        QCOMPARE(RoundedShadowMesh::coverage(0, 5), 0.5);
        QVERIFY(std::abs(RoundedShadowMesh::coverage(5, 5) - 0.158655) < 1e-5);
        QCOMPARE(RoundedShadowMesh::coverage(-0.5, 0), 1.0); // no blur: a hard edge

        // The last two: a radius past half the box, a box thinner than the blur.
        const struct {
            QSizeF box;
            qreal cornerRadius, sigma;
        } shapes[] = {{{250, 300}, 13, 16}, {{80, 36}, 18, 6}, {{390, 60}, 0, 8},
                      {{30, 20}, 50, 4},   {{200, 6}, 2, 10}};
        for (const auto &[box, cornerRadius, sigma] : shapes) {
            const qreal margin = std::ceil(3 * sigma);
            const RoundedShadowMesh::Mesh mesh = RoundedShadowMesh::build(box, cornerRadius, sigma, margin);
            QVERIFY(!mesh.indices.empty());
            QVERIFY(std::all_of(mesh.indices.begin(), mesh.indices.end(),
                                [&](quint16 i) { return i < mesh.vertices.size(); }));
            for (const auto &v : mesh.vertices) {
                const qreal d = outlineDistance(v.position, box, cornerRadius);
                QVERIFY(std::abs(v.coverage - RoundedShadowMesh::coverage(d, sigma)) < 1e-6);
            }
            QRandomGenerator random(7);
            for (int n = 0; n < 300; ++n) {
                const QPointF p(-margin + random.generateDouble() * (box.width() + 2 * margin),
                                -margin + random.generateDouble() * (box.height() + 2 * margin));
                const qreal d = outlineDistance(p, box, cornerRadius);
                const std::optional<qreal> got = meshCoverage(mesh, p);
                const bool near = got && std::abs(*got - RoundedShadowMesh::coverage(d, sigma)) < 1.0 / 255;
                QVERIFY2(d > margin - 0.5 || near, qPrintable(QStringLiteral("%1,%2").arg(p.x()).arg(p.y())));
            }
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
