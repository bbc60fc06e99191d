#include "decor/GlobeItem.h"

#include "decor/GlobeGeometry.h"
#include "decor/GlobeMaterial.h"

#include <QTimerEvent>
#include <QSGGeometryNode>

#include <cmath>

GlobeItem::GlobeItem(QQuickItem *parent)
    : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

void GlobeItem::setVariant(Variant variant)
{
    if (variant == m_variant)
        return;
    m_variant = variant;
    m_scene = GlobeScene(variant == Animated ? GlobeScene::Variant::Animated : GlobeScene::Variant::Static);
    m_sceneChanged = true;
    update();
    emit variantChanged();
}

void GlobeItem::setDotColor(const QColor &color)
{
    if (color == m_dotColor)
        return;
    m_dotColor = color;
    update();
    emit dotColorChanged();
}

void GlobeItem::setSpinAngle(qreal degrees)
{
    if (!std::isfinite(degrees) || degrees == m_spinAngle)
        return;
    m_spinAngle = degrees;
    if (m_scene.spins())
        update();
    emit spinAngleChanged();
}

void GlobeItem::setSpinning(bool spinning)
{
    if (spinning == m_spinning)
        return;
    if (!spinning)
        advanceSpin();
    m_spinning = spinning;
    m_spinStart = m_spinAngle;
    m_spinClock.start();
    followFrames();
    emit spinningChanged();
}

void GlobeItem::advanceSpin()
{
    if (!m_spinning || !m_scene.spins())
        return;
    const qreal turned = m_spinClock.elapsed() * 360.0 / GlobeScene::spinPeriodMs;
    setSpinAngle(std::fmod(m_spinStart + turned, 360.0));
}

void GlobeItem::followFrames()
{
    // A timer paces the frames: asking for the next frame from each frame
    // would draw as fast as a display without vsync lets it.
    if (m_spinning && window()) {
        if (!m_frameTimer.isActive())
            m_frameTimer.start(frameIntervalMs, Qt::PreciseTimer, this);
        update();
    } else {
        m_frameTimer.stop();
    }
}

void GlobeItem::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_frameTimer.timerId()) {
        QQuickItem::timerEvent(event);
        return;
    }
    advanceSpin();
    update();
}

void GlobeItem::itemChange(ItemChange change, const ItemChangeData &value)
{
    QQuickItem::itemChange(change, value);
    if (change == ItemSceneChange)
        followFrames();
}

void GlobeItem::turnCamera(qreal dx, qreal dy)
{
    const GlobeScene::CameraTurn turn = GlobeScene::turned(m_turn, dx, dy, height());
    if (turn.yaw == m_turn.yaw && turn.pitch == m_turn.pitch)
        return;
    m_turn = turn;
    update();
    emit cameraTurned();
}

void GlobeItem::geometryChange(const QRectF &newGeometry, const QRectF &oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    if (newGeometry.size() != oldGeometry.size())
        update();
}

QSGNode *GlobeItem::updatePaintNode(QSGNode *oldNode, UpdatePaintNodeData *)
{
    auto *node = static_cast<QSGGeometryNode *>(oldNode);
    if (width() <= 0 || height() <= 0) {
        delete node;
        return nullptr;
    }
    if (node && m_sceneChanged) {
        delete node;
        node = nullptr;
    }
    m_sceneChanged = false;
    if (!node) {
        node = new QSGGeometryNode;
        node->setGeometry(new GlobeGeometry(m_scene));
        node->setFlag(QSGNode::OwnsGeometry);
        node->setMaterial(new GlobeMaterial);
        node->setFlag(QSGNode::OwnsMaterial);
    }

    auto *geometry = static_cast<GlobeGeometry *>(node->geometry());
    if (geometry->itemSize() != size()) {
        geometry->setItemSize(size());
        node->markDirty(QSGNode::DirtyGeometry);
    }
    auto *material = static_cast<GlobeMaterial *>(node->material());
    material->modelView = GlobeScene::viewMatrix(m_turn)
        * m_scene.worldTransform(m_scene.dotParentIndex(), float(m_spinAngle));
    material->projection = m_scene.projectionMatrix(float(width() / height()));
    material->color = m_dotColor;
    material->itemSize = size();
    material->dotRadius = float(m_scene.dotRadius());
    node->markDirty(QSGNode::DirtyMaterial);
    return node;
}
