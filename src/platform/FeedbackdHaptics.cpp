#include "FeedbackdHaptics.h"

#include "AppIdentity.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusServiceWatcher>
#include <QLoggingCategory>

// Quiet unless asked for: a desktop without feedbackd is normal.
Q_LOGGING_CATEGORY(lcHaptics, "murvane.haptics", QtInfoMsg)

namespace {
// Long enough for the bus to start the daemon on demand.
constexpr int callTimeoutMs = 5000;
} // namespace

FeedbackdHaptics::FeedbackdHaptics(QObject *parent)
    : QObject(parent)
{
}

FeedbackdHaptics::FeedbackdHaptics(const QDBusConnection &bus, QObject *parent)
    : QObject(parent)
    , m_bus(bus)
{
}

FeedbackdHaptics::~FeedbackdHaptics() = default;

void FeedbackdHaptics::lightImpact()
{
    trigger(lightImpactEvent);
}

void FeedbackdHaptics::successNotification()
{
    trigger(successEvent);
}

bool FeedbackdHaptics::ensureBus()
{
    if (!m_bus)
        m_bus = QDBusConnection::sessionBus();
    if (m_bus->isConnected())
        return true;
    markAbsent(QStringLiteral("no session bus"));
    return false;
}

void FeedbackdHaptics::trigger(const QString &event)
{
    if (m_absent || !ensureBus())
        return;
    QDBusMessage call = QDBusMessage::createMethodCall(serviceName, objectPath, interfaceName,
                                                       QStringLiteral("TriggerFeedback"));
    const QVariantMap hints{{QStringLiteral("profile"), QStringLiteral("quiet")}};
    // A timeout of -1 plays each feedback of the event once.
    call << AppIdentity::appId << event << hints << -1;
    auto *watcher = new QDBusPendingCallWatcher(m_bus->asyncCall(call, callTimeoutMs), this);
    ++m_pending;
    connect(watcher, &QDBusPendingCallWatcher::finished, this, &FeedbackdHaptics::finished);
}

void FeedbackdHaptics::finished(QDBusPendingCallWatcher *call)
{
    --m_pending;
    call->deleteLater();
    if (call->isError())
        markAbsent(call->error().message());
}

void FeedbackdHaptics::markAbsent(const QString &reason)
{
    m_absent = true;
    if (!m_reported) {
        m_reported = true;
        qCDebug(lcHaptics) << "feedbackd not reachable, haptics off:" << reason;
    }
    // Come back when the daemon shows up on the bus (a restart, a late
    // session start); without a bus there is nothing to watch.
    if (!m_watcher && m_bus && m_bus->isConnected()) {
        m_watcher = new QDBusServiceWatcher(serviceName, *m_bus, QDBusServiceWatcher::WatchForRegistration, this);
        connect(m_watcher, &QDBusServiceWatcher::serviceRegistered, this, [this] { m_absent = false; });
    }
}
