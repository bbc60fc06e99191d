#pragma once

#include "decor/GlobeScene.h"

#include <QColor>
#include <QObject>
#include <QVector3D>
#include <QtQml/qqml.h>

// One globe scene for the views that draw it: the camera, tilt, spin and
// dot constants of the chosen variant, read by the QML scene and by the
// instancing table that places the dots.
class GlobeSceneModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(Variant variant READ variant WRITE setVariant NOTIFY variantChanged)
    Q_PROPERTY(int dotCount READ dotCount NOTIFY variantChanged)
    Q_PROPERTY(qreal dotRadius READ dotRadius NOTIFY variantChanged)
    Q_PROPERTY(qreal fieldOfView READ fieldOfView NOTIFY variantChanged)
    Q_PROPERTY(bool spins READ spins NOTIFY variantChanged)
    Q_PROPERTY(int spinPeriod READ spinPeriod NOTIFY variantChanged)
    // Degrees about x of the tilt node.
    Q_PROPERTY(qreal tiltDegrees READ tiltDegrees CONSTANT)
    // The camera hangs at (0, 0, cameraDistance) inside a pivot at the centre
    // turned by cameraPivotRotation (Euler degrees), which puts it at the fixed
    // camera position looking at the centre and lets an orbit control turn it.
    Q_PROPERTY(QVector3D cameraPivotRotation READ cameraPivotRotation CONSTANT)
    Q_PROPERTY(qreal cameraDistance READ cameraDistance CONSTANT)

public:
    enum Variant { Animated, Static };
    Q_ENUM(Variant)

    explicit GlobeSceneModel(QObject *parent = nullptr);

    Variant variant() const { return m_variant; }
    void setVariant(Variant variant);
    const GlobeScene &scene() const { return m_scene; }

    int dotCount() const;
    qreal dotRadius() const { return m_scene.dotRadius(); }
    qreal fieldOfView() const { return m_scene.fieldOfViewDegrees(); }
    bool spins() const { return m_scene.spins(); }
    int spinPeriod() const { return m_scene.spins() ? GlobeScene::spinPeriodMs : 0; }
    qreal tiltDegrees() const;
    QVector3D cameraPivotRotation() const { return GlobeScene::cameraLookAtEulerDegrees(); }
    qreal cameraDistance() const { return GlobeScene::cameraDistance(); }

    // The still globe's dot colour for a scheme.
    Q_INVOKABLE QColor dotColorFor(bool dark) const { return GlobeScene::staticDotColor(dark); }

signals:
    void variantChanged();

private:
    static GlobeScene::Variant toScene(Variant variant);

    Variant m_variant = Animated;
    GlobeScene m_scene{GlobeScene::Variant::Animated};
};
