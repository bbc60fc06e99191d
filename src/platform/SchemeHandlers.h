#pragma once

#include <QString>
#include <QStringList>

// Whether an installed application handles links of a URL scheme, read
// from the freedesktop.org MIME association files (x-scheme-handler/<scheme>)
// without starting any process.
namespace SchemeHandlers {
// Looks in <dataDir>/applications/mimeinfo.cache, the mimeapps.list files
// of the config and data folders, and the desktop files' MimeType lines.
bool exists(const QString &scheme, const QStringList &dataDirs, const QStringList &configDirs);
// The same over the user's XDG data and config folders.
bool exists(const QString &scheme);
} // namespace SchemeHandlers
