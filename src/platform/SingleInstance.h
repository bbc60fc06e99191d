#pragma once

#include <QDBusConnection>
#include <QLockFile>
#include <QObject>
#include <QVariantMap>

class QWindow;

// One running app per user. The first process owns the app's well-known
// name on the session bus and answers org.freedesktop.Application at the
// matching object path, so a later launch (or a DBusActivatable desktop
// file) asks it to come to the front. Whatever the bus, the first process
// also holds a lock in the data folder, so that without a session bus a
// second process still finds out before it reads or writes anything.
class SingleInstance : public QObject
{
    Q_OBJECT

public:
    enum class Claim {
        First,       // this process runs the app
        HandedOver,  // the running one was asked to come to the front
        AlreadyOpen, // another process holds the data and could not be reached
    };

    // `name` is the well-known bus name; `dataDirectory` is the folder whose
    // data the lock guards (made if missing).
    SingleInstance(const QDBusConnection &bus, const QString &name, const QString &dataDirectory,
                   QObject *parent = nullptr);
    ~SingleInstance() override;

    // Call once, before the data is opened. A second process hands
    // `platformData` to the running one.
    Claim claim(const QVariantMap &platformData = {});

    QString lockFilePath() const { return m_lock.fileName(); }

    // The object path that goes with a bus name: io.example.App → /io/example/App.
    static QString objectPath(const QString &name);
    // What this launch carries for the running process: the startup tokens
    // a launcher leaves in the environment.
    static QVariantMap launchPlatformData();
    // The token that lets a window take the focus, from platform data.
    static QString activationToken(const QVariantMap &platformData);
    // Un-minimises, raises and activates `window`, using the launch's token
    // where the platform needs one.
    static void bringToFront(QWindow *window, const QVariantMap &platformData);

signals:
    // Another launch, or the desktop, asked the running app to come forward.
    void activated(const QVariantMap &platformData);

private:
    bool ownName();
    void releaseName();
    bool handOver(const QVariantMap &platformData);

    QDBusConnection m_bus;
    QString m_name;
    QLockFile m_lock;
    bool m_ownsName = false;
    bool m_objectRegistered = false;
};
