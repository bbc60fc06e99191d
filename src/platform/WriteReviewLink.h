#pragma once

#include <QString>
#include <QUrl>

// The link to the page where a user writes a review of the app.
namespace WriteReviewLink {
// The app's page in the Linux software centre (GNOME Software, KDE
// Discover): appstream://<app id>.
QUrl forSoftwareCentre(const QString &appId);
// The App Store's write-review page for a store id (digits only):
// itms-apps://apps.apple.com/app/id<store id>?action=write-review. An
// empty or malformed id gives an invalid URL, which nobody opens.
QUrl forAppStore(const QString &storeId);
// The link for the platform this build runs on. Apple builds take the
// store id from the build (MURVANE_APP_STORE_ID).
QUrl current();
} // namespace WriteReviewLink
