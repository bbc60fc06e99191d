#include "decor/GlobeSceneModel.h"

#include <QtMath>

GlobeSceneModel::GlobeSceneModel(QObject *parent)
    : QObject(parent)
{
}

void GlobeSceneModel::setVariant(Variant variant)
{
    if (variant == m_variant)
        return;
    m_variant = variant;
    m_scene = GlobeScene(toScene(variant));
    emit variantChanged();
}

int GlobeSceneModel::dotCount() const
{
    return m_scene.childCount(m_scene.dotParentIndex(), GlobeScene::NodeKind::Dot);
}

qreal GlobeSceneModel::tiltDegrees() const
{
    return qRadiansToDegrees(GlobeScene::tiltAngle);
}

GlobeScene::Variant GlobeSceneModel::toScene(Variant variant)
{
    return variant == Animated ? GlobeScene::Variant::Animated : GlobeScene::Variant::Static;
}
