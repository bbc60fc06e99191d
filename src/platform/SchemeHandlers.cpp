#include "SchemeHandlers.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTextStream>

namespace {

// Whether a key=value file names a handler for the MIME type outside a
// [Removed Associations] group.
bool fileAssociates(const QString &path, const QString &mimeType)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return false;
    QTextStream in(&file);
    const QString key = mimeType + QLatin1Char('=');
    bool removedGroup = false;
    QString line;
    while (in.readLineInto(&line)) {
        line = line.trimmed();
        if (line.startsWith(QLatin1Char('['))) {
            removedGroup = line == QLatin1String("[Removed Associations]");
            continue;
        }
        if (!removedGroup && line.startsWith(key)) {
            const QString handlers = line.mid(key.size()).trimmed();
            if (!handlers.isEmpty() && handlers != QLatin1String(";"))
                return true;
        }
    }
    return false;
}

// Whether a desktop file lists the MIME type in its MimeType line.
bool desktopFileHandles(const QString &path, const QString &mimeType)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return false;
    QTextStream in(&file);
    QString line;
    while (in.readLineInto(&line)) {
        if (!line.startsWith(QLatin1String("MimeType=")))
            continue;
        const QStringList types = line.mid(9).split(QLatin1Char(';'), Qt::SkipEmptyParts);
        for (const QString &type : types) {
            if (type.trimmed() == mimeType)
                return true;
        }
    }
    return false;
}

} // namespace

namespace SchemeHandlers {

bool exists(const QString &scheme, const QStringList &dataDirs, const QStringList &configDirs)
{
    if (scheme.isEmpty())
        return false;
    const QString mimeType = QStringLiteral("x-scheme-handler/") + scheme.toLower();

    // The caches and association lists answer almost always; the desktop
    // files are read only when they do not.
    for (const QString &dir : dataDirs) {
        if (fileAssociates(dir + QStringLiteral("/applications/mimeinfo.cache"), mimeType))
            return true;
    }
    for (const QString &dir : configDirs) {
        if (fileAssociates(dir + QStringLiteral("/mimeapps.list"), mimeType))
            return true;
    }
    for (const QString &dir : dataDirs) {
        if (fileAssociates(dir + QStringLiteral("/applications/mimeapps.list"), mimeType))
            return true;
    }
    for (const QString &dir : dataDirs) {
        const QDir applications(dir + QStringLiteral("/applications"));
        const QStringList files = applications.entryList({QStringLiteral("*.desktop")}, QDir::Files);
        for (const QString &file : files) {
            if (desktopFileHandles(applications.filePath(file), mimeType))
                return true;
        }
    }
    return false;
}

bool exists(const QString &scheme)
{
    return exists(scheme, QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation),
                  QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation));
}

} // namespace SchemeHandlers
