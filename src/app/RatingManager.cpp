#include "RatingManager.h"

#include "platform/preferences/PreferencesStore.h"
#include "platform/ReviewRequester.h"
#include "platform/UrlOpener.h"
#include "platform/WriteReviewLink.h"

#include <QRegularExpression>
#include <QTimer>

QDateTime RatingManager::systemClock()
{
    return QDateTime::currentDateTimeUtc();
}

RatingManager::RatingManager(PreferencesStore &preferences, Clock clock, ReviewRequester &requester,
                             UrlOpener &opener, QObject *parent)
    : QObject(parent)
    , m_preferences(&preferences)
    , m_clock(std::move(clock))
    , m_requester(&requester)
    , m_opener(&opener)
{
}

QString RatingManager::installDateString() const
{
    return m_preferences->string(PreferenceKeys::installDateString).value_or(PreferenceKeys::defaultDateString);
}

void RatingManager::setInstallDateString(const QString &value)
{
    m_preferences->setString(PreferenceKeys::installDateString, value);
    emit installDateStringChanged();
}

QString RatingManager::lastPromptDateString() const
{
    return m_preferences->string(PreferenceKeys::lastPromptDateString).value_or(PreferenceKeys::defaultDateString);
}

void RatingManager::setLastPromptDateString(const QString &value)
{
    m_preferences->setString(PreferenceKeys::lastPromptDateString, value);
    emit lastPromptDateStringChanged();
}

bool RatingManager::shouldRequestReview()
{
    const QDateTime current = now();
    const QString install = installDateString();
    if (install.isEmpty()) {
        setInstallDateString(formatDate(current));
        return false;
    }
    const std::optional<QDateTime> installed = parseDate(install);
    if (!installed)
        return false;

    const QString lastPrompt = lastPromptDateString();
    if (lastPrompt.isEmpty())
        return installed->msecsTo(current) > firstPromptDelaySeconds * 1000;

    const std::optional<QDateTime> prompted = parseDate(lastPrompt);
    if (!prompted)
        return false;
    return prompted->msecsTo(current) > repromptIntervalSeconds * 1000;
}

void RatingManager::requestReview()
{
    QTimer::singleShot(0, this, [this] { m_requester->requestReview(); });
}

void RatingManager::openWriteReviewPage()
{
    const QUrl url = WriteReviewLink::current();
    if (!url.isValid())
        return;
    m_opener->open(url);
}

QString RatingManager::formatDate(const QDateTime &dateTime)
{
    QDateTime utc = dateTime.toUTC();
    utc.setTime(QTime(utc.time().hour(), utc.time().minute(), utc.time().second()));
    return utc.toString(Qt::ISODate);
}

std::optional<QDateTime> RatingManager::parseDate(const QString &text)
{
    // Qt's ISO reader is lenient (no zone means local time, fractions are
    // fine), so the shape is checked first.
    static const QRegularExpression shape(
        QStringLiteral("^\\d{4}-\\d{2}-\\d{2}T\\d{2}:\\d{2}:\\d{2}(Z|[+-]\\d{2}:\\d{2})$"));
    if (!shape.match(text).hasMatch())
        return std::nullopt;
    const QDateTime parsed = QDateTime::fromString(text, Qt::ISODate);
    if (!parsed.isValid())
        return std::nullopt;
    return parsed.toUTC();
}
