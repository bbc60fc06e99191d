#include "decor/DotSphereGeometry.h"

#include <QHash>
#include <QList>
#include <QVector3D>

#include <algorithm>
#include <array>
#include <cmath>

namespace {
using Triangle = std::array<quint16, 3>;

struct Mesh
{
    QList<QVector3D> vertices;
    QList<Triangle> triangles;
};

Mesh icosahedron()
{
    const float t = (1.0f + std::sqrt(5.0f)) / 2.0f;
    Mesh mesh;
    mesh.vertices = {{-1, t, 0}, {1, t, 0},   {-1, -t, 0}, {1, -t, 0}, {0, -1, t},  {0, 1, t},
                     {0, -1, -t}, {0, 1, -t}, {t, 0, -1},  {t, 0, 1},  {-t, 0, -1}, {-t, 0, 1}};
    for (QVector3D &v : mesh.vertices)
        v.normalize();
    // Counter-clockwise seen from outside.
    mesh.triangles = {{0, 11, 5}, {0, 5, 1},  {0, 1, 7},   {0, 7, 10}, {0, 10, 11}, {1, 5, 9}, {5, 11, 4},
                      {11, 10, 2}, {10, 7, 6}, {7, 1, 8},  {3, 9, 4},  {3, 4, 2},   {3, 2, 6}, {3, 6, 8},
                      {3, 8, 9},  {4, 9, 5},  {2, 4, 11}, {6, 2, 10}, {8, 6, 7},   {9, 8, 1}};
    return mesh;
}

// Splits every triangle into four, sharing each new edge midpoint between
// the two triangles that meet there.
void subdivide(Mesh &mesh)
{
    QHash<quint32, quint16> midpoints;
    auto midpoint = [&](quint16 a, quint16 b) {
        const quint32 key = (quint32(std::min(a, b)) << 16) | std::max(a, b);
        const auto found = midpoints.constFind(key);
        if (found != midpoints.cend())
            return *found;
        mesh.vertices.append(((mesh.vertices[a] + mesh.vertices[b]) / 2).normalized());
        const auto index = static_cast<quint16>(mesh.vertices.size() - 1);
        midpoints.insert(key, index);
        return index;
    };
    QList<Triangle> split;
    split.reserve(mesh.triangles.size() * 4);
    for (const Triangle &tri : std::as_const(mesh.triangles)) {
        const quint16 ab = midpoint(tri[0], tri[1]);
        const quint16 bc = midpoint(tri[1], tri[2]);
        const quint16 ca = midpoint(tri[2], tri[0]);
        split.append({tri[0], ab, ca});
        split.append({tri[1], bc, ab});
        split.append({tri[2], ca, bc});
        split.append({ab, bc, ca});
    }
    mesh.triangles = split;
}
} // namespace

DotSphereGeometry::DotSphereGeometry(QQuick3DObject *parent)
    : QQuick3DGeometry(parent)
{
    rebuild();
}

void DotSphereGeometry::setSubdivisions(int subdivisions)
{
    subdivisions = std::clamp(subdivisions, 0, maximumSubdivisions);
    if (subdivisions == m_subdivisions)
        return;
    m_subdivisions = subdivisions;
    rebuild();
    emit subdivisionsChanged();
}

void DotSphereGeometry::rebuild()
{
    Mesh mesh = icosahedron();
    for (int i = 0; i < m_subdivisions; ++i)
        subdivide(mesh);

    // Position then normal; on a unit sphere they are the same vector.
    QByteArray vertices;
    vertices.resize(mesh.vertices.size() * 6 * qsizetype(sizeof(float)));
    float *out = reinterpret_cast<float *>(vertices.data());
    for (const QVector3D &v : std::as_const(mesh.vertices)) {
        for (int copy = 0; copy < 2; ++copy) {
            *out++ = v.x();
            *out++ = v.y();
            *out++ = v.z();
        }
    }
    QByteArray indices;
    indices.resize(mesh.triangles.size() * 3 * qsizetype(sizeof(quint16)));
    quint16 *index = reinterpret_cast<quint16 *>(indices.data());
    for (const Triangle &tri : std::as_const(mesh.triangles))
        index = std::copy(tri.begin(), tri.end(), index);

    clear();
    setPrimitiveType(PrimitiveType::Triangles);
    setStride(6 * sizeof(float));
    addAttribute(Attribute::PositionSemantic, 0, Attribute::F32Type);
    addAttribute(Attribute::NormalSemantic, 3 * sizeof(float), Attribute::F32Type);
    addAttribute(Attribute::IndexSemantic, 0, Attribute::U16Type);
    setVertexData(vertices);
    setIndexData(indices);
    setBounds({-1, -1, -1}, {1, 1, 1});
    update();

    m_triangleCount = static_cast<int>(mesh.triangles.size());
    m_vertexCount = static_cast<int>(mesh.vertices.size());
}
