#pragma once

#include <QDBusAbstractAdaptor>
#include <QStringList>
#include <QVariantMap>
#include <functional>

// The org.freedesktop.Application interface of the running app, which a
// desktop launcher (or a second launch) calls to bring it to the front.
// The app has no files to open and no desktop actions, so Open only
// activates and ActivateAction is ignored.
class ApplicationAdaptor : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    using Handler = std::function<void(const QVariantMap &platformData)>;
    // Exported with `parent`; every activation goes to `onActivate`.
    ApplicationAdaptor(QObject *parent, Handler onActivate);

public slots:
    void Activate(const QVariantMap &platformData);
    void Open(const QStringList &uris, const QVariantMap &platformData);
    void ActivateAction(const QString &actionName, const QVariantList &parameter, const QVariantMap &platformData);

private:
    // A callback rather than a signal: an adaptor's signals are published on the bus.
    Handler m_onActivate;
};
