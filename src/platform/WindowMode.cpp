#include "WindowMode.h"

#include <QStringList>

namespace WindowModes {

WindowMode forEnvironment(const QProcessEnvironment &environment)
{
    const QString mobileControls = environment.value(QStringLiteral("QT_QUICK_CONTROLS_MOBILE")).trimmed();
    if (mobileControls == QLatin1String("1") || mobileControls.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0)
        return WindowMode::Maximized;
    // A colon-separated list of form factors, such as "phone:handset".
    if (environment.value(QStringLiteral("PLASMA_PLATFORM")).split(QLatin1Char(':')).contains(QLatin1String("phone")))
        return WindowMode::Maximized;
    const QStringList desktops = environment.value(QStringLiteral("XDG_CURRENT_DESKTOP")).split(QLatin1Char(':'), Qt::SkipEmptyParts);
    for (const QString &desktop : desktops) {
        const QString name = desktop.trimmed();
        if (name.compare(QLatin1String("Phosh"), Qt::CaseInsensitive) == 0
            || name.compare(QLatin1String("Lomiri"), Qt::CaseInsensitive) == 0)
            return WindowMode::Maximized;
    }
    return WindowMode::Window;
}

WindowMode current()
{
#if defined(Q_OS_ANDROID) || defined(Q_OS_IOS)
    return WindowMode::FullScreen;
#else
    return forEnvironment(QProcessEnvironment::systemEnvironment());
#endif
}

} // namespace WindowModes
