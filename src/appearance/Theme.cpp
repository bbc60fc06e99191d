#include "Theme.h"

namespace Themes {

QString rawValue(Theme theme)
{
    switch (theme) {
    case Theme::green: return QStringLiteral("green");
    case Theme::pink: return QStringLiteral("pink");
    case Theme::blue: return QStringLiteral("blue");
    case Theme::gray: return QStringLiteral("gray");
    case Theme::purple: return QStringLiteral("purple");
    case Theme::classic: return QStringLiteral("classic");
    }
    return QStringLiteral("green");
}

QString label(Theme theme)
{
    switch (theme) {
    case Theme::green: return QStringLiteral("Green");
    case Theme::pink: return QStringLiteral("Pink");
    case Theme::blue: return QStringLiteral("Blue");
    case Theme::gray: return QStringLiteral("Gray");
    case Theme::purple: return QStringLiteral("Purple");
    case Theme::classic: return QStringLiteral("Classic");
    }
    return QStringLiteral("Green");
}

std::optional<Theme> fromRawValue(const QString &raw)
{
    for (Theme theme : allCases) {
        if (rawValue(theme) == raw)
            return theme;
    }
    return std::nullopt;
}

} // namespace Themes
