#include "views/RoundedShadowMesh.h"

#include <QTest>
#include <algorithm>
#include <cmath>
#include <numbers>

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

} // namespace

class TestRoundedShadowMesh : public QObject
{
    Q_OBJECT

private slots:
    // For the shapes the app's shadows take and the clamp's edge cases: the
    // middle of every triangle is within about a colour step of the blur, so
    // the rings are close enough and every vertex carries the blur's strength
    // where it stands; and the triangles cover the shadow's area once: no
    // holes, no overlaps. Bad input gives no mesh, or a finite one.
    void meshFollowsTheBlur()
    {
        QCOMPARE(RoundedShadowMesh::coverage(0, 5), 0.5);
        QVERIFY(std::abs(RoundedShadowMesh::coverage(5, 5) - 0.158655) < 1e-5);
        QVERIFY(RoundedShadowMesh::build(QSizeF(qInf(), 10), 4, 5, 15).vertices.empty());
        QVERIFY(RoundedShadowMesh::build(QSizeF(10, 10), 4, qQNaN(), 15).vertices.empty());
        const auto bad = RoundedShadowMesh::build(QSizeF(-5, -5), -3, 0, 0);
        QVERIFY(std::all_of(bad.vertices.begin(), bad.vertices.end(), [](const auto &v) {
            return std::isfinite(v.position.x()) && std::isfinite(v.position.y()) && std::isfinite(v.coverage);
        }));

        // The last two: a radius past half the box, a box thinner than the blur.
        const struct {
            QSizeF box;
            qreal cornerRadius, sigma;
        } shapes[] = {{{250, 300}, 13, 16}, {{80, 36}, 18, 6}, {{390, 60}, 0, 8},
                      {{30, 20}, 50, 4},   {{200, 6}, 2, 10}};
        for (const auto &[box, cornerRadius, sigma] : shapes) {
            const qreal margin = std::ceil(3 * sigma);
            const RoundedShadowMesh::Mesh mesh = RoundedShadowMesh::build(box, cornerRadius, sigma, margin);
            qreal area = 0;
            for (std::size_t i = 0; i + 2 < mesh.indices.size(); i += 3) {
                const auto &a = mesh.vertices.at(mesh.indices[i]);
                const auto &b = mesh.vertices.at(mesh.indices[i + 1]);
                const auto &c = mesh.vertices.at(mesh.indices[i + 2]);
                const QPointF ab = b.position - a.position, ac = c.position - a.position;
                area += std::abs(ab.x() * ac.y() - ab.y() * ac.x()) / 2;
                const QPointF middle = (a.position + b.position + c.position) / 3;
                const qreal blur = RoundedShadowMesh::coverage(outlineDistance(middle, box, cornerRadius), sigma);
                QVERIFY(std::abs((a.coverage + b.coverage + c.coverage) / 3 - blur) < 1.5 / 255);
            }
            // The box grown by the margin, its corners rounder by as much;
            // chords stand in for the arcs.
            const qreal r = std::clamp(cornerRadius, 0.0, std::min(box.width(), box.height()) / 2) + margin;
            const qreal shadow = (box.width() + 2 * margin) * (box.height() + 2 * margin)
                - (4 - std::numbers::pi) * r * r;
            QVERIFY2(std::abs(area - shadow) < 0.002 * shadow, qPrintable(QString::number(area / shadow)));
        }
    }
};

QTEST_GUILESS_MAIN(TestRoundedShadowMesh)
#include "tst_roundedshadowmesh.moc"
