#pragma once

#include <QtQml/qqml.h>
#include <QtQuick3D/QQuick3DGeometry>

// A unit sphere for dots that are only a few pixels across on screen: an
// icosahedron whose faces are split `subdivisions` times and pushed out to
// the sphere (20 triangles at 0, 80 at 1, 320 at 2). Evenly spread
// triangles keep the outline round at the fewest triangles, and normals
// equal to the positions make the shading that of a true sphere.
class DotSphereGeometry : public QQuick3DGeometry
{
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(int subdivisions READ subdivisions WRITE setSubdivisions NOTIFY subdivisionsChanged)
    Q_PROPERTY(int triangleCount READ triangleCount NOTIFY subdivisionsChanged)

public:
    static constexpr int maximumSubdivisions = 4;

    explicit DotSphereGeometry(QQuick3DObject *parent = nullptr);

    int subdivisions() const { return m_subdivisions; }
    void setSubdivisions(int subdivisions); // clamped to 0...maximumSubdivisions
    int triangleCount() const { return m_triangleCount; }
    int vertexCount() const { return m_vertexCount; }

signals:
    void subdivisionsChanged();

private:
    void rebuild();

    int m_subdivisions = 1;
    int m_triangleCount = 0;
    int m_vertexCount = 0;
};
