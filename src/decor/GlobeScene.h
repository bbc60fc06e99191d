#pragma once

#include <QColor>
#include <QQuaternion>
#include <QVector3D>

#include <vector>

// The dot globe as a scene graph, without any renderer: a camera looking at
// the centre, a node tilted a quarter of a half-turn back about x, and, for
// the turning globe, a spin node inside the tilt node, so that the globe
// turns about its own tilted axis. The dots are small spheres on rings of
// latitude over a sphere of radius 55.
//
// Two variants exist. The large turning globe lays its dots out in double
// precision with the latitude accumulated ring by ring; the small still one
// (the menu button's icon) works in single precision with a pi rounded down
// to 3.1415925, so its dots sit where that arithmetic puts them.
class GlobeScene
{
public:
    enum class Variant { Animated, Static };
    enum class NodeKind { Root, Camera, Tilt, Spin, Dot };

    struct Position
    {
        double x = 0;
        double y = 0;
        double z = 0;
    };

    struct Node
    {
        NodeKind kind = NodeKind::Root;
        int parent = -1; // index into nodes(); -1 for the root
        Position position;
    };

    static constexpr double sphereRadius = 55.0;
    // Fixed single-precision numbers, not derived at run time: about 124.25
    // units from the centre and 14.9 degrees above the equator.
    static constexpr float cameraX = 119.66445922851562f;
    static constexpr float cameraY = 32.0f;
    static constexpr float cameraZ = 9.714912414550781f;
    // -pi/4 in single precision.
    static constexpr float tiltAngle = -0.7853981f;
    static constexpr int spinPeriodMs = 65000;

    explicit GlobeScene(Variant variant);

    Variant variant() const { return m_variant; }
    const std::vector<Node> &nodes() const { return m_nodes; }

    int rootIndex() const { return 0; }
    int cameraIndex() const { return 1; }
    int tiltIndex() const { return 2; }
    int spinIndex() const { return m_spinIndex; } // -1 when the globe stands still
    int dotParentIndex() const { return m_dotParentIndex; }

    // The direct children of a node that are of the given kind.
    int childCount(int parent, NodeKind kind) const;
    // The dots in the order they were laid out: ring by ring, then along the ring.
    std::vector<Position> dotPositions() const;
    int ringCount() const;
    int dotsPerRing() const;

    double dotRadius() const;
    double fieldOfViewDegrees() const;
    bool spins() const { return m_variant == Variant::Animated; }

    static QVector3D cameraPosition();
    // The camera's orientation when looking at the centre with the world's y
    // as up (no roll), as Euler angles in degrees (x pitch, y yaw, z roll)
    // applied in the order roll, pitch, yaw.
    static QVector3D cameraLookAtEulerDegrees();
    static QQuaternion cameraLookAtRotation();
    static float cameraDistance();

    // The still globe's dots: white in the dark scheme, black in the light one.
    static QColor staticDotColor(bool dark);

private:
    int addNode(NodeKind kind, int parent, Position position);
    void layOutAnimatedDots();
    void layOutStaticDots();

    Variant m_variant;
    std::vector<Node> m_nodes;
    int m_spinIndex = -1;
    int m_dotParentIndex = -1;
};
