#pragma once

#include "decor/GlobeScene.h"

#include <QColor>
#include <QBasicTimer>
#include <QElapsedTimer>
#include <QQuickItem>
#include <QtQml/qqml.h>

// Draws a GlobeScene into the Qt Quick scene graph: every dot of the scene
// is one square of a single static geometry node, drawn as a lit sphere;
// the camera, the tilt and the spin are the material's matrices. Nothing is
// drawn again unless the spin, the camera, the colour or the size changes.
class GlobeItem : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(Variant variant READ variant WRITE setVariant NOTIFY variantChanged)
    Q_PROPERTY(QColor dotColor READ dotColor WRITE setDotColor NOTIFY dotColorChanged)
    // Degrees the spin node has turned about its y.
    Q_PROPERTY(qreal spinAngle READ spinAngle WRITE setSpinAngle NOTIFY spinAngleChanged)
    // While true (and the variant turns), the spin advances with the clock,
    // a full turn per spinPeriod whatever the frame rate; false holds it.
    Q_PROPERTY(bool spinning READ spinning WRITE setSpinning NOTIFY spinningChanged)
    Q_PROPERTY(qreal cameraYaw READ cameraYaw NOTIFY cameraTurned)
    Q_PROPERTY(qreal cameraPitch READ cameraPitch NOTIFY cameraTurned)
    Q_PROPERTY(int dotCount READ dotCount NOTIFY variantChanged)
    Q_PROPERTY(int spinPeriod READ spinPeriod NOTIFY variantChanged)

public:
    enum Variant { Animated, Static };
    Q_ENUM(Variant)

    explicit GlobeItem(QQuickItem *parent = nullptr);

    Variant variant() const { return m_variant; }
    void setVariant(Variant variant);
    QColor dotColor() const { return m_dotColor; }
    void setDotColor(const QColor &color);
    qreal spinAngle() const { return m_spinAngle; }
    void setSpinAngle(qreal degrees);
    bool spinning() const { return m_spinning; }
    void setSpinning(bool spinning);
    qreal cameraYaw() const { return m_turn.yaw; }
    qreal cameraPitch() const { return m_turn.pitch; }
    int dotCount() const { return m_scene.dotCount(); }
    int spinPeriod() const { return m_scene.spins() ? GlobeScene::spinPeriodMs : 0; }

    // Turns the camera around the globe by a drag of (dx, dy) pixels.
    Q_INVOKABLE void turnCamera(qreal dx, qreal dy);
    // The still globe's dot colour under the dark or the light scheme.
    Q_INVOKABLE QColor staticDotColor(bool dark) const { return GlobeScene::staticDotColor(dark); }

signals:
    void variantChanged();
    void dotColorChanged();
    void spinAngleChanged();
    void spinningChanged();
    void cameraTurned();

protected:
    QSGNode *updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *) override;
    void geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;
    void timerEvent(QTimerEvent *event) override;

private:
    Variant m_variant = Animated;
    GlobeScene m_scene{GlobeScene::Variant::Animated};
    QColor m_dotColor = Qt::gray;
    qreal m_spinAngle = 0;
    // Turns the spin to where the clock says, once per frame while spinning.
    void advanceSpin();
    void followFrames();
    bool m_spinning = false;
    QElapsedTimer m_spinClock;
    qreal m_spinStart = 0;
    // A little faster than sixty a second: a frame that comes late still
    // lands within a 60 Hz display's frame, and with vsync the display's
    // own pace wins.
    static constexpr int frameIntervalMs = 14;
    QBasicTimer m_frameTimer;
    GlobeScene::CameraTurn m_turn;
    // The geometry must be made anew after a change of variant.
    bool m_sceneChanged = false;
};
