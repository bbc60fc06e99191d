#include "ApplicationAdaptor.h"

ApplicationAdaptor::ApplicationAdaptor(QObject *parent, Handler onActivate)
    : QDBusAbstractAdaptor(parent)
    , m_onActivate(std::move(onActivate))
{
}

void ApplicationAdaptor::Activate(const QVariantMap &platformData)
{
    m_onActivate(platformData);
}

void ApplicationAdaptor::Open(const QStringList &uris, const QVariantMap &platformData)
{
    Q_UNUSED(uris)
    m_onActivate(platformData);
}

void ApplicationAdaptor::ActivateAction(const QString &actionName, const QVariantList &parameter,
                                        const QVariantMap &platformData)
{
    Q_UNUSED(actionName)
    Q_UNUSED(parameter)
    Q_UNUSED(platformData)
}
