#include "WriteReviewLink.h"

#include "AppIdentity.h"

#include <QRegularExpression>
#include <QUrlQuery>

#ifndef MURVANE_APP_STORE_ID
#define MURVANE_APP_STORE_ID ""
#endif

namespace WriteReviewLink {

QUrl forSoftwareCentre(const QString &appId)
{
    if (appId.isEmpty())
        return QUrl();
    QUrl url;
    url.setScheme(QStringLiteral("appstream"));
    url.setHost(appId);
    return url;
}

QUrl forAppStore(const QString &storeId)
{
    static const QRegularExpression digits(QStringLiteral("^[0-9]+$"));
    if (!digits.match(storeId).hasMatch())
        return QUrl();
    QUrl url;
    url.setScheme(QStringLiteral("itms-apps"));
    url.setHost(QStringLiteral("apps.apple.com"));
    url.setPath(QStringLiteral("/app/id") + storeId);
    url.setQuery(QStringLiteral("action=write-review"));
    return url;
}

QUrl current()
{
#if defined(Q_OS_IOS) || defined(Q_OS_MACOS)
    return forAppStore(QStringLiteral(MURVANE_APP_STORE_ID));
#else
    return forSoftwareCentre(AppIdentity::appId);
#endif
}

} // namespace WriteReviewLink
