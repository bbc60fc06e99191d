#pragma once

#include <QString>

// Who the app is to the rest of the system.
namespace AppIdentity {
// Reverse-DNS id: the desktop file's name, the software-centre component id
// and the name feedback daemons know the app by. All lower case, because a
// URL host (appstream://<id>) is case-insensitive and gets lowered.
inline const QString appId = QStringLiteral("io.murvane.murvane");
} // namespace AppIdentity
