#include "views/RoundedShadowMesh.h"

#include <QSGGeometryNode>
#include <QSGVertexColorMaterial>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

// Points on each quarter circle of a ring; a chord then strays well under
// a pixel from the arc at the radii shadows have.
constexpr int arcSegments = 16;
// Rings are this many sigmas apart: close enough that straight
// interpolation stays within a fraction of a colour step of the blur.
constexpr qreal ringSpacing = 0.25;
// Beyond this many sigmas inside the outline the shadow is at full strength
// to within a colour step.
constexpr qreal fullDepth = 3;
constexpr int maxRings = 64;

} // namespace

RoundedShadowMesh::RoundedShadowMesh(QQuickItem *parent) : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

qreal RoundedShadowMesh::coverage(qreal distance, qreal sigma)
{
    return 0.5 * std::erfc(distance / (std::max(sigma, 0.01) * std::numbers::sqrt2));
}

RoundedShadowMesh::Mesh RoundedShadowMesh::build(QSizeF box, qreal cornerRadius, qreal sigma, qreal margin)
{
    Mesh mesh;
    const qreal halfW = std::max(box.width(), 0.0) / 2;
    const qreal halfH = std::max(box.height(), 0.0) / 2;
    const qreal halfMin = std::min(halfW, halfH);
    const qreal radius = std::clamp(cornerRadius, 0.0, halfMin);
    sigma = std::max(sigma, 0.01);
    margin = std::max(margin, 0.0);
    if (!std::isfinite(halfW + halfH + radius + sigma + margin))
        return mesh;

    const qreal inner = std::min(halfMin, fullDepth * sigma);
    const int steps = std::clamp(int(std::ceil((inner + margin) / (ringSpacing * sigma))), 1, maxRings);
    const int perRing = 4 * (arcSegments + 1);
    const QPointF centre(halfW, halfH);

    mesh.vertices.reserve(std::size_t(steps + 1) * perRing + 1);
    for (int ring = 0; ring <= steps; ++ring) {
        // Where the blurred shadow has one strength: the outline moved out
        // by `d`, its corners rounder outside and sharp once deep inside.
        const qreal d = -inner + (inner + margin) * ring / steps;
        const qreal arcRadius = std::max(radius + d, 0.0);
        const qreal cx = halfW + d - arcRadius;
        const qreal cy = halfH + d - arcRadius;
        const qreal strength = coverage(d, sigma);
        // Corners clockwise from the top-right, each swept clockwise.
        const QPointF corners[4] = {{cx, -cy}, {cx, cy}, {-cx, cy}, {-cx, -cy}};
        for (int corner = 0; corner < 4; ++corner) {
            for (int i = 0; i <= arcSegments; ++i) {
                const qreal angle = std::numbers::pi / 2 * (corner - 1 + qreal(i) / arcSegments);
                const QPointF onArc = corners[corner] + arcRadius * QPointF(std::cos(angle), std::sin(angle));
                mesh.vertices.push_back({centre + onArc, strength});
            }
        }
    }
    // The middle, inside the innermost ring.
    const auto middle = quint16(mesh.vertices.size());
    mesh.vertices.push_back({centre, coverage(-halfMin, sigma)});

    mesh.indices.reserve(std::size_t(steps) * perRing * 6 + std::size_t(perRing) * 3);
    for (int ring = 0; ring < steps; ++ring) {
        for (int i = 0; i < perRing; ++i) {
            const int next = (i + 1) % perRing;
            const auto a = quint16(ring * perRing + i), b = quint16(ring * perRing + next);
            const auto c = quint16(a + perRing), e = quint16(b + perRing);
            mesh.indices.insert(mesh.indices.end(), {a, b, c, b, e, c});
        }
    }
    for (int i = 0; i < perRing; ++i)
        mesh.indices.insert(mesh.indices.end(), {middle, quint16(i), quint16((i + 1) % perRing)});
    return mesh;
}

void RoundedShadowMesh::setBoxSize(QSizeF size)
{
    if (size == m_boxSize)
        return;
    m_boxSize = size;
    m_meshDirty = true;
    emit shapeChanged();
    update();
}

void RoundedShadowMesh::setShapeValue(qreal &field, qreal value)
{
    if (qFuzzyCompare(field, value))
        return;
    field = value;
    m_meshDirty = true;
    emit shapeChanged();
    update();
}

void RoundedShadowMesh::setCornerRadius(qreal radius) { setShapeValue(m_cornerRadius, radius); }
void RoundedShadowMesh::setSigma(qreal sigma) { setShapeValue(m_sigma, sigma); }
void RoundedShadowMesh::setMargin(qreal margin) { setShapeValue(m_margin, margin); }

void RoundedShadowMesh::setColor(const QColor &color)
{
    if (color == m_color)
        return;
    m_color = color;
    m_meshDirty = true;
    emit colorChanged();
    update();
}

QSGNode *RoundedShadowMesh::updatePaintNode(QSGNode *old, UpdatePaintNodeData *)
{
    auto *node = static_cast<QSGGeometryNode *>(old);
    if (!node) {
        node = new QSGGeometryNode;
        node->setMaterial(new QSGVertexColorMaterial);
        node->setFlag(QSGNode::OwnsMaterial);
        auto *geometry = new QSGGeometry(QSGGeometry::defaultAttributes_ColoredPoint2D(), 0, 0,
                                         QSGGeometry::UnsignedShortType);
        geometry->setDrawingMode(QSGGeometry::DrawTriangles);
        node->setGeometry(geometry);
        node->setFlag(QSGNode::OwnsGeometry);
    }
    if (!m_meshDirty)
        return node;
    m_meshDirty = false;

    const Mesh mesh = build(m_boxSize, m_cornerRadius, m_sigma, m_margin);
    QSGGeometry *geometry = node->geometry();
    geometry->allocate(int(mesh.vertices.size()), int(mesh.indices.size()));
    // Premultiplied, as the material expects.
    const qreal strength = m_color.alphaF();
    QSGGeometry::ColoredPoint2D *out = geometry->vertexDataAsColoredPoint2D();
    for (const Vertex &v : mesh.vertices) {
        const qreal alpha = std::clamp(strength * v.coverage, 0.0, 1.0);
        const auto channel = [alpha](qreal c) { return uchar(std::lround(c * alpha * 255)); };
        (out++)->set(float(v.position.x() + m_margin), float(v.position.y() + m_margin), channel(m_color.redF()),
                     channel(m_color.greenF()), channel(m_color.blueF()), channel(1));
    }
    std::copy(mesh.indices.begin(), mesh.indices.end(), geometry->indexDataAsUShort());
    node->markDirty(QSGNode::DirtyGeometry);
    return node;
}
