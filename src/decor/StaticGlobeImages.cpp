#include "StaticGlobeImages.h"

#include <QQmlEngine>
#include <QQuickImageProvider>

namespace {

const QString providerName = QStringLiteral("murvaneglobe");

class Provider final : public QQuickImageProvider
{
public:
    Provider()
        : QQuickImageProvider(QQuickImageProvider::Image)
    {
    }

    QImage requestImage(const QString &id, QSize *size, const QSize &requestedSize) override
    {
        QImage image = StaticGlobeImages::instance()->image(id == u"dark");
        if (size)
            *size = image.size();
        if (!image.isNull() && requestedSize.isValid() && requestedSize != image.size())
            image = image.scaled(requestedSize, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        return image;
    }
};

} // namespace

StaticGlobeImages *StaticGlobeImages::instance()
{
    static StaticGlobeImages images;
    return &images;
}

StaticGlobeImages *StaticGlobeImages::create(QQmlEngine *engine, QJSEngine *)
{
    if (engine && !engine->imageProvider(providerName))
        engine->addImageProvider(providerName, new Provider);
    QJSEngine::setObjectOwnership(instance(), QJSEngine::CppOwnership);
    return instance();
}

bool StaticGlobeImages::darkReady() const
{
    QMutexLocker lock(&m_mutex);
    return !m_dark.isNull();
}

bool StaticGlobeImages::lightReady() const
{
    QMutexLocker lock(&m_mutex);
    return !m_light.isNull();
}

QUrl StaticGlobeImages::darkSource() const
{
    return darkReady() ? QUrl(QStringLiteral("image://murvaneglobe/dark")) : QUrl();
}

QUrl StaticGlobeImages::lightSource() const
{
    return lightReady() ? QUrl(QStringLiteral("image://murvaneglobe/light")) : QUrl();
}

void StaticGlobeImages::store(bool dark, const QImage &image)
{
    if (image.isNull())
        return;
    {
        QMutexLocker lock(&m_mutex);
        QImage &slot = dark ? m_dark : m_light;
        if (!slot.isNull())
            return;
        slot = image;
    }
    emit changed();
}

QImage StaticGlobeImages::image(bool dark) const
{
    QMutexLocker lock(&m_mutex);
    return dark ? m_dark : m_light;
}
