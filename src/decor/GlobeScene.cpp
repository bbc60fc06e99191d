#include "decor/GlobeScene.h"

#include <QtMath>

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
    const int dotCount = ringCount() * dotsPerRing();
    m_nodes.reserve(static_cast<size_t>(dotCount) + 4);
    addNode(NodeKind::Root, -1, Position());
    addNode(NodeKind::Camera, rootIndex(), {cameraX, cameraY, cameraZ});
    addNode(NodeKind::Tilt, rootIndex(), Position());
    if (spins()) {
        m_spinIndex = addNode(NodeKind::Spin, tiltIndex(), Position());
        m_dotParentIndex = m_spinIndex;
        layOutAnimatedDots();
    } else {
        m_dotParentIndex = tiltIndex();
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

int GlobeScene::ringCount() const
{
    return m_variant == Variant::Animated ? animatedRings : staticRings;
}

int GlobeScene::dotsPerRing() const
{
    return m_variant == Variant::Animated ? animatedDotsPerRing : staticDotsPerRing;
}

double GlobeScene::dotRadius() const
{
    return m_variant == Variant::Animated ? 0.8 : 3.0;
}

double GlobeScene::fieldOfViewDegrees() const
{
    return m_variant == Variant::Animated ? 84.0 : 55.0;
}

QVector3D GlobeScene::cameraPosition()
{
    return {cameraX, cameraY, cameraZ};
}

QVector3D GlobeScene::cameraLookAtEulerDegrees()
{
    // The camera looks down its own -z. With forward d (unit, towards the
    // centre), rotating -z by pitch then yaw gives
    // (-cos p sin y, sin p, -cos p cos y) = d.
    const double x = cameraX, y = cameraY, z = cameraZ;
    const double length = std::sqrt(x * x + y * y + z * z);
    const double dx = -x / length, dy = -y / length, dz = -z / length;
    const double pitch = std::asin(dy);
    const double yaw = std::atan2(-dx, -dz);
    return {static_cast<float>(qRadiansToDegrees(pitch)), static_cast<float>(qRadiansToDegrees(yaw)), 0.0f};
}

QQuaternion GlobeScene::cameraLookAtRotation()
{
    const QVector3D euler = cameraLookAtEulerDegrees();
    return QQuaternion::fromEulerAngles(euler.x(), euler.y(), euler.z());
}

float GlobeScene::cameraDistance()
{
    return cameraPosition().length();
}

QColor GlobeScene::staticDotColor(bool dark)
{
    return dark ? QColor(Qt::white) : QColor(Qt::black);
}
