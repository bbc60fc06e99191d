#pragma once

#include <QString>
#include <array>
#include <optional>

// The six colour themes, in menu-independent order; the stored form of a
// theme is its raw value.
enum class Theme { green, pink, blue, gray, purple, classic };

namespace Themes {
// Every theme, in the order above.
inline constexpr std::array<Theme, 6> allCases = {Theme::green,  Theme::pink,   Theme::blue,
                                                  Theme::gray,   Theme::purple, Theme::classic};

// The stored string: "green", "pink", ...
QString rawValue(Theme theme);
// The text shown in the theme menu: "Green", "Pink", ...
QString label(Theme theme);
// The theme whose raw value equals the string exactly (case counts); none
// for any other string.
std::optional<Theme> fromRawValue(const QString &raw);
} // namespace Themes
