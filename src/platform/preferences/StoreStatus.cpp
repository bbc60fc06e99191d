#include "StoreStatus.h"

QString StoreStatus::message() const
{
    if (saveFailing())
        return QStringLiteral("Your changes are not being saved (%1). Murvane keeps trying; "
                              "closing it now would lose them.")
            .arg(m_saveError);
    if (!m_recoveredAt.isEmpty())
        return QStringLiteral("Some saved data could not be read. A copy is kept in %1.").arg(m_recoveredAt);
    return {};
}

void StoreStatus::dismiss()
{
    if (!dismissable())
        return;
    m_recoveredAt.clear();
    emit messageChanged();
}

void StoreStatus::setSaveError(const QString &error)
{
    if (m_saveError == error)
        return;
    m_saveError = error;
    emit messageChanged();
}

void StoreStatus::noteRecovered(const QString &where)
{
    if (m_recoveredAt == where)
        return;
    m_recoveredAt = where;
    emit messageChanged();
}
