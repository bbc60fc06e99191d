#include "decor/GlobeGeometry.h"

namespace {
const QSGGeometry::AttributeSet &dotAttributes()
{
    static const QSGGeometry::Attribute list[] = {
        QSGGeometry::Attribute::createWithAttributeType(0, 2, QSGGeometry::FloatType, QSGGeometry::PositionAttribute),
        QSGGeometry::Attribute::createWithAttributeType(1, 4, QSGGeometry::FloatType, QSGGeometry::UnknownAttribute),
    };
    static const QSGGeometry::AttributeSet set = {2, sizeof(GlobeGeometry::Vertex), list};
    return set;
}

// Square corners in drawing order: two triangles over (0 1 2) and (2 1 3).
constexpr int cornerX[] = {0, 1, 0, 1};
constexpr int cornerY[] = {0, 0, 1, 1};
constexpr quint16 cornerIndex[] = {0, 1, 2, 2, 1, 3};
} // namespace

GlobeGeometry::GlobeGeometry(const GlobeScene &scene)
    : QSGGeometry(dotAttributes(), 2 * scene.dotCount() * verticesPerDot, 2 * scene.dotCount() * indicesPerDot,
                  QSGGeometry::UnsignedShortType)
{
    setDrawingMode(QSGGeometry::DrawTriangles);
    setVertexDataPattern(QSGGeometry::StaticPattern);
    setIndexDataPattern(QSGGeometry::StaticPattern);

    const auto dots = scene.dotPositions();
    auto *vertex = static_cast<Vertex *>(vertexData());
    quint16 *index = indexDataAsUShort();
    int first = 0;
    for (const float half : {0.0f, 1.0f}) {
        for (const GlobeScene::Position &dot : dots) {
            for (int c = 0; c < verticesPerDot; ++c) {
                *vertex++ = {0, 0, float(dot.x), float(dot.y), float(dot.z), half};
            }
            for (const quint16 c : cornerIndex)
                *index++ = quint16(first + c);
            first += verticesPerDot;
        }
    }
    setItemSize(QSizeF(1, 1));
}

void GlobeGeometry::setItemSize(QSizeF size)
{
    m_itemSize = size;
    auto *vertex = static_cast<Vertex *>(vertexData());
    for (int i = 0; i < vertexCount(); ++i) {
        vertex[i].cornerX = float(cornerX[i % verticesPerDot] * size.width());
        vertex[i].cornerY = float(cornerY[i % verticesPerDot] * size.height());
    }
    markVertexDataDirty();
}
