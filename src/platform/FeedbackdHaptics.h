#pragma once

#include "Haptics.h"

#include <QDBusConnection>
#include <QObject>
#include <optional>

class QDBusPendingCallWatcher;
class QDBusServiceWatcher;

// Haptics through feedbackd, the feedback daemon of Linux phone shells
// (Phosh and others), over the session bus. Events go out with the daemon's
// standard names and the "quiet" profile, so they vibrate without a sound
// and still follow the user's own feedback settings.
//
// Calls are asynchronous and never wait. When the daemon is not there (a
// desktop, or no session bus) the first failed call marks it absent, once
// and quietly, and nothing more is sent until the daemon appears on the bus.
class FeedbackdHaptics : public QObject, public Haptics
{
    Q_OBJECT

public:
    // Uses the session bus, connected on the first haptic.
    explicit FeedbackdHaptics(QObject *parent = nullptr);
    explicit FeedbackdHaptics(const QDBusConnection &bus, QObject *parent = nullptr);
    ~FeedbackdHaptics() override;

    void lightImpact() override;
    void successNotification() override;

    // False once the daemon is known to be missing.
    bool isAvailable() const { return !m_absent; }
    // Calls sent and not yet answered.
    int pendingCalls() const { return m_pending; }

    static inline const QString serviceName = QStringLiteral("org.sigxcpu.Feedback");
    static inline const QString objectPath = QStringLiteral("/org/sigxcpu/Feedback");
    static inline const QString interfaceName = QStringLiteral("org.sigxcpu.Feedback");
    // A short, soft tap in feedbackd's default theme.
    static inline const QString lightImpactEvent = QStringLiteral("button-pressed");
    // The event for an action of the user that went through.
    static inline const QString successEvent = QStringLiteral("message-sent-instant");

private:
    void trigger(const QString &event);
    bool ensureBus();
    void markAbsent(const QString &reason);
    void finished(QDBusPendingCallWatcher *call);

    std::optional<QDBusConnection> m_bus;
    QDBusServiceWatcher *m_watcher = nullptr;
    bool m_absent = false;
    bool m_reported = false;
    int m_pending = 0;
};
