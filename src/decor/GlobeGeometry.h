#pragma once

#include "decor/GlobeScene.h"

#include <QSizeF>
#include <QSGGeometry>

// The vertices of a globe's dots, static for the life of the globe: one
// camera-facing square per dot, drawn as a lit sphere by GlobeMaterial. The
// dots are listed twice, the far half's copy first: the shader keeps each dot
// in only one of the copies, by which side of the centre it is on after the
// turn, so the near side always covers the far side without a depth buffer.
class GlobeGeometry : public QSGGeometry
{
public:
    struct Vertex
    {
        // A corner of the item's rectangle, in item coordinates: tells the
        // shader which corner of the dot's square this is, and the scene
        // graph the bounds of what is drawn.
        float cornerX;
        float cornerY;
        // The dot's centre in its parent node's space.
        float x;
        float y;
        float z;
        // 0 in the far half's copy, 1 in the near half's.
        float nearHalf;
    };

    static constexpr int verticesPerDot = 4;
    static constexpr int indicesPerDot = 6;

    explicit GlobeGeometry(const GlobeScene &scene);

    // Moves the corners to a new item size; the dots stay.
    void setItemSize(QSizeF size);
    QSizeF itemSize() const { return m_itemSize; }
    const Vertex *vertices() const { return static_cast<const Vertex *>(vertexData()); }

private:
    QSizeF m_itemSize;
};
