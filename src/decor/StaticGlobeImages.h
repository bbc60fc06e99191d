#pragma once

#include <QImage>
#include <QMutex>
#include <QObject>
#include <QUrl>
#include <QtQml/qqml.h>

// The still globe's two pictures (dark and light scheme), rendered once per
// process and then served to every menu button through the image provider
// "murvaneglobe", so a rebuilt toolbar shows its icon without any 3-D work.
class StaticGlobeImages : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool darkReady READ darkReady NOTIFY changed)
    Q_PROPERTY(bool lightReady READ lightReady NOTIFY changed)
    Q_PROPERTY(QUrl darkSource READ darkSource NOTIFY changed)
    Q_PROPERTY(QUrl lightSource READ lightSource NOTIFY changed)

public:
    static StaticGlobeImages *instance();
    // The QML singleton; also registers the image provider with that engine.
    static StaticGlobeImages *create(QQmlEngine *engine, QJSEngine *);

    bool darkReady() const;
    bool lightReady() const;
    // Empty until the picture exists.
    QUrl darkSource() const;
    QUrl lightSource() const;

    // Keeps a rendered picture; the first one of each scheme wins.
    Q_INVOKABLE void store(bool dark, const QImage &image);
    QImage image(bool dark) const;

signals:
    void changed();

private:
    StaticGlobeImages() = default;

    mutable QMutex m_mutex;
    QImage m_dark;
    QImage m_light;
};
