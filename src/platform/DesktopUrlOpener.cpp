#include "DesktopUrlOpener.h"

#include "SchemeHandlers.h"

#include <QDesktopServices>
#include <QUrl>

bool DesktopUrlOpener::canOpen(const QUrl &url) const
{
    if (!url.isValid() || url.scheme().isEmpty())
        return false;
#if defined(Q_OS_LINUX) || defined(Q_OS_FREEBSD)
    const QString scheme = url.scheme().toLower();
    // Web and file links always have a handler on a desktop.
    if (scheme == QLatin1String("http") || scheme == QLatin1String("https") || scheme == QLatin1String("file"))
        return true;
    return SchemeHandlers::exists(scheme);
#else
    return true;
#endif
}

void DesktopUrlOpener::open(const QUrl &url)
{
    if (!canOpen(url))
        return;
    // The result is of no use: there is nothing the app would do instead.
    QDesktopServices::openUrl(url);
}
