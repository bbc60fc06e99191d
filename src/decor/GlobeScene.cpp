#include "decor/GlobeScene.h"

#include <QtMath>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace {
constexpr int animatedRings = 30;
constexpr int animatedDotsPerRing = 60;
constexpr int staticRings = 14;
constexpr int staticDotsPerRing = 24;
// The single-precision pi of the still globe, rounded down.
constexpr float staticPi = 3.1415925f;
} // namespace

GlobeScene::GlobeScene(Variant variant)
    : m_variant(variant)
{
    m_nodes.reserve(animatedRings * animatedDotsPerRing + 4);
    addNode(NodeKind::Root, -1, Position());
    addNode(NodeKind::Camera, rootIndex(), {cameraX, cameraY, cameraZ});
    addNode(NodeKind::Tilt, rootIndex(), Position());
    if (spins()) {
        m_spinIndex = addNode(NodeKind::Spin, tiltIndex(), Position());
        m_dotParentIndex = m_spinIndex;
        m_firstDot = static_cast<int>(m_nodes.size());
        layOutAnimatedDots();
    } else {
        m_dotParentIndex = tiltIndex();
        m_firstDot = static_cast<int>(m_nodes.size());
        layOutStaticDots();
    }
}

int GlobeScene::addNode(NodeKind kind, int parent, Position position)
{
    m_nodes.push_back({kind, parent, position});
    return static_cast<int>(m_nodes.size()) - 1;
}

void GlobeScene::layOutAnimatedDots()
{
    // One count per ring; a ring with no dots would still advance the latitude.
    std::array<int, animatedRings> counts;
    counts.fill(animatedDotsPerRing);

    const double pi = std::numbers::pi;
    double latitude = -pi / 2;
    for (const int count : counts) {
        if (count > 0) {
            const double step = 2 * pi / count;
            for (int j = 0; j < count; ++j) {
                const double longitude = j * step;
                addNode(NodeKind::Dot, m_dotParentIndex,
                        {sphereRadius * std::cos(latitude) * std::cos(longitude), sphereRadius * std::sin(latitude),
                         sphereRadius * std::cos(latitude) * std::sin(longitude)});
            }
        }
        latitude += pi / 29;
    }
}

void GlobeScene::layOutStaticDots()
{
    const float radius = static_cast<float>(sphereRadius);
    for (int i = 0; i < staticRings; ++i) {
        const float latitude = static_cast<float>(i) * staticPi / 13.0f - staticPi / 2.0f;
        for (int j = 0; j < staticDotsPerRing; ++j) {
            const float longitude = static_cast<float>(j + j) * staticPi / 24.0f;
            const float x = radius * std::cos(latitude) * std::cos(longitude);
            const float y = radius * std::sin(latitude);
            const float z = radius * std::cos(latitude) * std::sin(longitude);
            addNode(NodeKind::Dot, m_dotParentIndex, {x, y, z});
        }
    }
}

int GlobeScene::childCount(int parent, NodeKind kind) const
{
    int count = 0;
    for (const Node &node : m_nodes) {
        if (node.parent == parent && node.kind == kind)
            ++count;
    }
    return count;
}

std::vector<GlobeScene::Position> GlobeScene::dotPositions() const
{
    std::vector<Position> positions;
    positions.reserve(m_nodes.size());
    for (const Node &node : m_nodes) {
        if (node.kind == NodeKind::Dot)
            positions.push_back(node.position);
    }
    return positions;
}

double GlobeScene::dotRadius() const
{
    return m_variant == Variant::Animated ? 0.8 : 3.0;
}

double GlobeScene::fieldOfViewDegrees() const
{
    return m_variant == Variant::Animated ? 84.0 : 55.0;
}

QMatrix4x4 GlobeScene::worldTransform(int node, float spinDegrees) const
{
    QMatrix4x4 transform;
    for (int i = node; i >= 0; i = m_nodes[size_t(i)].parent) {
        const Node &n = m_nodes[size_t(i)];
        QMatrix4x4 local;
        switch (n.kind) {
        case NodeKind::Tilt:
            local.rotate(qRadiansToDegrees(tiltAngle), 1, 0, 0);
            break;
        case NodeKind::Spin:
            local.rotate(spinDegrees, 0, 1, 0);
            break;
        case NodeKind::Camera:
        case NodeKind::Dot:
            local.translate(float(n.position.x), float(n.position.y), float(n.position.z));
            break;
        case NodeKind::Root:
            break;
        }
        transform = local * transform;
    }
    return transform;
}

QVector3D GlobeScene::cameraPosition(CameraTurn turn)
{
    const QVector3D fixed(cameraX, cameraY, cameraZ);
    if (turn.yaw == 0 && turn.pitch == 0)
        return fixed;
    const double distance = fixed.length();
    const double elevation = std::asin(cameraY / distance) + qDegreesToRadians(double(turn.pitch));
    const double azimuth = std::atan2(double(cameraX), double(cameraZ)) + qDegreesToRadians(double(turn.yaw));
    return QVector3D(float(distance * std::cos(elevation) * std::sin(azimuth)),
                     float(distance * std::sin(elevation)),
                     float(distance * std::cos(elevation) * std::cos(azimuth)));
}

QMatrix4x4 GlobeScene::viewMatrix(CameraTurn turn)
{
    QMatrix4x4 view;
    view.lookAt(cameraPosition(turn), QVector3D(0, 0, 0), QVector3D(0, 1, 0));
    return view;
}

QMatrix4x4 GlobeScene::projectionMatrix(float aspect) const
{
    QMatrix4x4 projection;
    projection.perspective(float(fieldOfViewDegrees()), aspect > 0 ? aspect : 1.0f, clipNear, clipFar);
    return projection;
}

GlobeScene::CameraTurn GlobeScene::turned(CameraTurn turn, double dx, double dy, double viewHeight)
{
    if (!(viewHeight > 0) || !std::isfinite(dx) || !std::isfinite(dy))
        return turn;
    const double degreesPerPixel = 180.0 / viewHeight;
    // Dragging to the right brings the left side into view; up shows the top.
    const double yaw = std::fmod(turn.yaw - dx * degreesPerPixel, 360.0);
    // The pitch is counted from the camera's own height above the equator.
    const double base = qRadiansToDegrees(std::asin(cameraY / double(cameraPosition().length())));
    const double pitch = std::clamp(turn.pitch + dy * degreesPerPixel, -maximumPitch - base, maximumPitch - base);
    return {float(yaw), float(pitch)};
}
QColor GlobeScene::staticDotColor(bool dark)
{
    return dark ? QColor(Qt::white) : QColor(Qt::black);
}
