#include "SingleInstance.h"

#include "ApplicationAdaptor.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QWindow>

namespace {

const QString applicationInterface = QStringLiteral("org.freedesktop.Application");
const QString activationTokenKey = QStringLiteral("activation-token");
const QString startupIdKey = QStringLiteral("desktop-startup-id");
// A running app answers at once; past this it is hung and treated as absent.
constexpr int handOverTimeoutMs = 3000;

QString lockPathIn(const QString &dataDirectory)
{
    return QDir(dataDirectory).filePath(QStringLiteral("instance.lock"));
}

} // namespace

SingleInstance::SingleInstance(const QDBusConnection &bus, const QString &name, const QString &dataDirectory,
                               QObject *parent)
    : QObject(parent)
    , m_bus(bus)
    , m_name(name)
    , m_lock(lockPathIn(dataDirectory))
{
    // The lock lasts as long as the process: it must never turn stale with
    // age, only when its holder is gone.
    m_lock.setStaleLockTime(0);
    // Made here when it is the first thing to need the folder: private to the user.
    if (!QFileInfo::exists(dataDirectory) && QDir().mkpath(dataDirectory))
        QFile::setPermissions(dataDirectory, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

SingleInstance::~SingleInstance()
{
    releaseName();
}

QString SingleInstance::objectPath(const QString &name)
{
    QString path = QLatin1Char('/') + name;
    path.replace(QLatin1Char('.'), QLatin1Char('/'));
    path.replace(QLatin1Char('-'), QLatin1Char('_'));
    return path;
}

QVariantMap SingleInstance::launchPlatformData()
{
    QVariantMap data;
    if (const QString token = qEnvironmentVariable("XDG_ACTIVATION_TOKEN"); !token.isEmpty())
        data.insert(activationTokenKey, token);
    if (const QString id = qEnvironmentVariable("DESKTOP_STARTUP_ID"); !id.isEmpty())
        data.insert(startupIdKey, id);
    return data;
}

QString SingleInstance::activationToken(const QVariantMap &platformData)
{
    // Wayland's token first; launchers that speak only the X11 startup
    // protocol put the same kind of token in the startup id.
    for (const QString &key : {activationTokenKey, startupIdKey}) {
        const QVariant value = platformData.value(key);
        if (value.typeId() == QMetaType::QString && !value.toString().isEmpty())
            return value.toString();
    }
    return {};
}

void SingleInstance::bringToFront(QWindow *window, const QVariantMap &platformData)
{
    if (!window)
        return;
    // Qt's Wayland shell integration takes a pending token from the
    // environment on the next activation request.
    const QString token = activationToken(platformData);
    if (!token.isEmpty() && QGuiApplication::platformName().startsWith(QLatin1String("wayland")))
        qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
    if (window->windowStates() & Qt::WindowMinimized)
        window->setWindowStates(window->windowStates() & ~Qt::WindowMinimized);
    window->show();
    window->raise();
    window->requestActivate();
}

SingleInstance::Claim SingleInstance::claim(const QVariantMap &platformData)
{
    if (m_bus.isConnected()) {
        if (!ownName() && handOver(platformData))
            return Claim::HandedOver;
    }
    // Without the bus, or with a holder of the name that does not answer,
    // the lock decides. With the name, it still keeps out a process started
    // where the bus cannot be seen.
    if (!m_lock.tryLock(0)) {
        releaseName();
        return Claim::AlreadyOpen;
    }
    // It names this process and machine: nobody else's business.
    QFile::setPermissions(m_lock.fileName(), QFile::ReadOwner | QFile::WriteOwner);
    return Claim::First;
}

bool SingleInstance::ownName()
{
    // The object is in place before the name is taken, so a launcher's call
    // that follows the name's appearance finds it.
    const QString path = objectPath(m_name);
    if (!m_objectRegistered) {
        new ApplicationAdaptor(this, [this](const QVariantMap &platformData) { emit activated(platformData); });
        m_objectRegistered = m_bus.registerObject(path, this, QDBusConnection::ExportAdaptors);
        if (!m_objectRegistered)
            return false;
    }
    QDBusConnectionInterface *bus = m_bus.interface();
    if (!bus)
        return false;
    const QDBusReply<QDBusConnectionInterface::RegisterServiceReply> reply = bus->registerService(
        m_name, QDBusConnectionInterface::DontQueueService, QDBusConnectionInterface::DontAllowReplacement);
    m_ownsName = reply.isValid() && reply.value() == QDBusConnectionInterface::ServiceRegistered;
    return m_ownsName;
}

void SingleInstance::releaseName()
{
    if (m_ownsName) {
        if (QDBusConnectionInterface *bus = m_bus.interface())
            bus->unregisterService(m_name);
        m_ownsName = false;
    }
    if (m_objectRegistered) {
        m_bus.unregisterObject(objectPath(m_name));
        m_objectRegistered = false;
    }
}

bool SingleInstance::handOver(const QVariantMap &platformData)
{
    QDBusMessage call = QDBusMessage::createMethodCall(m_name, objectPath(m_name), applicationInterface,
                                                       QStringLiteral("Activate"));
    call << platformData;
    // Keeps the event loop turning while it waits, so a holder in this very
    // process can answer.
    const QDBusMessage reply = m_bus.call(call, QDBus::BlockWithGui, handOverTimeoutMs);
    return reply.type() == QDBusMessage::ReplyMessage;
}
