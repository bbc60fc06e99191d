#pragma once

#include "decor/GlobeSceneModel.h"

#include <QPointer>
#include <QtQml/qqml.h>
#include <QtQuick3D/QQuick3DInstancing>

// The instance table of a globe's dots: one entry per dot of the scene, at
// the dot's position, scaled from the mesh's radius to the dot radius. All
// dots of a globe are then one draw of one mesh with one material; the
// material supplies the colour (the entries are white), so recolouring
// leaves this table alone.
class GlobeInstancing : public QQuick3DInstancing
{
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(GlobeSceneModel *scene READ scene WRITE setScene NOTIFY sceneChanged)
    // Radius of the mesh the instances draw (1 for DotSphereGeometry).
    Q_PROPERTY(qreal meshRadius READ meshRadius WRITE setMeshRadius NOTIFY meshRadiusChanged)
    Q_PROPERTY(int instanceCount READ instanceCount NOTIFY instanceCountChanged)

public:
    explicit GlobeInstancing(QQuick3DObject *parent = nullptr);

    GlobeSceneModel *scene() const { return m_scene; }
    void setScene(GlobeSceneModel *scene);
    qreal meshRadius() const { return m_meshRadius; }
    void setMeshRadius(qreal radius);
    int instanceCount() const { return m_instanceCount; }

signals:
    void sceneChanged();
    void meshRadiusChanged();
    void instanceCountChanged();

protected:
    QByteArray getInstanceBuffer(int *instanceCount) override;

private:
    void rebuild();

    QPointer<GlobeSceneModel> m_scene;
    qreal m_meshRadius = 1;
    QByteArray m_table;
    int m_instanceCount = 0;
};
