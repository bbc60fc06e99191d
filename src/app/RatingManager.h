#pragma once

#include "platform/WriteReviewOpener.h"
#include <QDateTime>
#include <QObject>
#include <QString>
#include <QtQml/qqml.h>
#include <functional>
#include <optional>

class PreferencesStore;
class ReviewRequester;
class UrlOpener;

// Decides when the app may ask for a review, and asks. It keeps two dates
// in the preferences: when the app was first checked ("installDateString")
// and when it last asked ("lastPromptDateString"), both ISO 8601 in UTC
// with whole seconds and a trailing Z; empty means never.
//
// The first request is due more than 14 days after the first check, later
// ones more than 120 days after the last. A stored date that does not parse
// silences it and is left as it is; a clock set before a stored date
// answers no.
class RatingManager : public QObject, public WriteReviewOpener
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the app")

    Q_PROPERTY(QString installDateString READ installDateString WRITE setInstallDateString NOTIFY
                   installDateStringChanged)
    Q_PROPERTY(QString lastPromptDateString READ lastPromptDateString WRITE setLastPromptDateString NOTIFY
                   lastPromptDateStringChanged)

public:
    using Clock = std::function<QDateTime()>;

    static constexpr qint64 firstPromptDelaySeconds = 1'209'600;  // 14 days
    static constexpr qint64 repromptIntervalSeconds = 10'368'000; // 120 days

    // The clock the app runs on: now, in UTC.
    static QDateTime systemClock();

    RatingManager(PreferencesStore &preferences, Clock clock, ReviewRequester &requester, UrlOpener &opener,
                  QObject *parent = nullptr);

    QString installDateString() const;
    void setInstallDateString(const QString &value);
    QString lastPromptDateString() const;
    void setLastPromptDateString(const QString &value);

    QDateTime now() const { return m_clock(); }

    // Whether a review request is due now. The very first call records now
    // as the install date (and answers no).
    Q_INVOKABLE bool shouldRequestReview();
    // Asks the platform for a review on a later turn of the event loop, so
    // the current event finishes first; returns at once.
    Q_INVOKABLE void requestReview();
    // Opens the page where the user writes a review. Independent of the
    // dates: it neither reads nor writes them.
    Q_INVOKABLE void openWriteReviewPage() override;

    // 2024-05-01T09:30:00Z: UTC, whole seconds, trailing Z.
    static QString formatDate(const QDateTime &dateTime);
    // Reads what formatDate writes: an internet date-time with whole seconds
    // and a time zone (Z or ±hh:mm). Anything else, a date without a zone
    // included, gives none.
    static std::optional<QDateTime> parseDate(const QString &text);

signals:
    void installDateStringChanged();
    void lastPromptDateStringChanged();

private:
    PreferencesStore *m_preferences;
    Clock m_clock;
    ReviewRequester *m_requester;
    UrlOpener *m_opener;
};
