#pragma once

#include <QColor>
#include <QMatrix4x4>
#include <QVector3D>

#include <vector>

// Where the user has turned the camera to, in degrees, from its fixed point:
// yaw about the world's y, pitch towards the poles.
struct GlobeCameraTurn
{
    float yaw = 0;
    float pitch = 0;
};

// The dot globe as a scene graph: a camera looking at the centre, a node
// tilted a quarter of a half-turn back about x, and, for the turning globe, a
// spin node inside the tilt node, so that the globe turns about its own
// tilted axis. The dots are small spheres on rings of latitude over a sphere
// of radius 55. GlobeItem draws exactly this: the dot positions become its
// vertices and the transforms below its camera and node matrices.
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
        int parent = -1; // index of the parent node; -1 for the root
        Position position;
    };

    using CameraTurn = GlobeCameraTurn;

    static constexpr double sphereRadius = 55.0;
    // Fixed single-precision numbers, not derived at run time: about 124.25
    // units from the centre and 14.9 degrees above the equator.
    static constexpr float cameraX = 119.66445922851562f;
    static constexpr float cameraY = 32.0f;
    static constexpr float cameraZ = 9.714912414550781f;
    // -pi/4 in single precision.
    static constexpr float tiltAngle = -0.7853981f;
    static constexpr int spinPeriodMs = 65000;
    // The camera keeps the world's y as up, so it stops this many degrees
    // above or below the equator, short of the poles.
    static constexpr float maximumPitch = 85.0f;
    static constexpr float clipNear = 1.0f;
    static constexpr float clipFar = 10000.0f;

    explicit GlobeScene(Variant variant);

    int rootIndex() const { return 0; }
    int tiltIndex() const { return 2; }
    int spinIndex() const { return m_spinIndex; } // -1 when the globe stands still
    int dotParentIndex() const { return m_dotParentIndex; }

    // The direct children of a node that are of the given kind.
    int childCount(int parent, NodeKind kind) const;
    // The dots in the order they were laid out: ring by ring, then along the ring.
    std::vector<Position> dotPositions() const;
    int dotCount() const { return static_cast<int>(m_nodes.size()) - m_firstDot; }

    double dotRadius() const;
    double fieldOfViewDegrees() const;
    bool spins() const { return m_variant == Variant::Animated; }

    // A node's transform into world space, through all its parents, with the
    // spin node turned by spinDegrees about its y.
    QMatrix4x4 worldTransform(int node, float spinDegrees) const;
    // The camera's place after the user's turn; exactly the fixed point
    // when not turned.
    static QVector3D cameraPosition(CameraTurn turn = {});
    // Looking from the camera at the root's origin, with the world's y up.
    static QMatrix4x4 viewMatrix(CameraTurn turn = {});
    // Vertical field of view over a viewport of this width / height.
    QMatrix4x4 projectionMatrix(float aspect) const;
    // A drag of (dx, dy) pixels over a view this many pixels high turns the
    // camera by this much: a drag across the view's height is half a turn.
    static CameraTurn turned(CameraTurn turn, double dx, double dy, double viewHeight);

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
    int m_firstDot = 0;
};
