#include "decor/GlobeInstancing.h"

GlobeInstancing::GlobeInstancing(QQuick3DObject *parent)
    : QQuick3DInstancing(parent)
{
}

void GlobeInstancing::setScene(GlobeSceneModel *scene)
{
    if (scene == m_scene)
        return;
    if (m_scene)
        disconnect(m_scene, nullptr, this, nullptr);
    m_scene = scene;
    if (m_scene)
        connect(m_scene, &GlobeSceneModel::variantChanged, this, &GlobeInstancing::rebuild);
    rebuild();
    emit sceneChanged();
}

void GlobeInstancing::setMeshRadius(qreal radius)
{
    if (qFuzzyCompare(radius, m_meshRadius) || radius <= 0)
        return;
    m_meshRadius = radius;
    rebuild();
    emit meshRadiusChanged();
}

void GlobeInstancing::rebuild()
{
    m_table.clear();
    int count = 0;
    if (m_scene) {
        const GlobeScene &scene = m_scene->scene();
        const auto positions = scene.dotPositions();
        const float scale = static_cast<float>(scene.dotRadius() / m_meshRadius);
        m_table.reserve(static_cast<qsizetype>(positions.size() * sizeof(InstanceTableEntry)));
        for (const GlobeScene::Position &p : positions) {
            const InstanceTableEntry entry = calculateTableEntry(
                QVector3D(static_cast<float>(p.x), static_cast<float>(p.y), static_cast<float>(p.z)),
                QVector3D(scale, scale, scale), QVector3D(), Qt::white);
            m_table.append(reinterpret_cast<const char *>(&entry), sizeof(entry));
        }
        count = static_cast<int>(positions.size());
    }
    markDirty();
    if (count != m_instanceCount) {
        m_instanceCount = count;
        emit instanceCountChanged();
    }
}

QByteArray GlobeInstancing::getInstanceBuffer(int *instanceCount)
{
    if (instanceCount)
        *instanceCount = m_instanceCount;
    return m_table;
}
