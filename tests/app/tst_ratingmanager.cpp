#include "RecordingUrlOpener.h"
#include "app/MurvaneApp.h"
#include "app/RatingManager.h"
#include "platform/preferences/MemoryPreferencesStore.h"
#include "platform/ReviewRequester.h"
#include "platform/WriteReviewOpener.h"

#include <QGuiApplication>
#include <QTest>

namespace {

const QDateTime t0 = QDateTime(QDate(2024, 5, 1), QTime(9, 30), Qt::UTC);
constexpr qint64 day = 86'400;
const QVariant absent;

QDateTime in(qint64 seconds)
{
    return t0.addSecs(seconds);
}

QVariant at(qint64 seconds)
{
    return RatingManager::formatDate(in(seconds));
}

struct FakeReviewRequester : ReviewRequester
{
    void requestReview() override { ++requests; }
    int requests = 0;
};

// A store, a settable clock and the doubles, wired to the app's manager.
struct Rig
{
    MemoryPreferencesStore store;
    QDateTime now = t0;
    FakeReviewRequester requester;
    RecordingUrlOpener opener;
    RatingManager manager{store, [this] { return now; }, requester, opener};
    MurvaneApp app{manager};

    // Brings the app to the front after it was away, through the
    // application's own signal, as the platform sends it.
    void comeBack()
    {
        emit qGuiApp->applicationStateChanged(Qt::ApplicationInactive);
        emit qGuiApp->applicationStateChanged(Qt::ApplicationActive);
    }
};

} // namespace

class TestRatingManager : public QObject
{
    Q_OBJECT

private slots:
    // The boundaries a fresh install meets come through the app below.
    void policy_data()
    {
        QTest::addColumn<QVariant>("install");    // stored value; invalid = never written
        QTest::addColumn<QVariant>("lastPrompt"); // likewise
        QTest::addColumn<QDateTime>("now");
        QTest::addColumn<bool>("answer");
        QTest::addColumn<bool>("recordsInstall");

        const QVariant installed = at(0);
        const QVariant prompted = at(30 * day);
        const QVariant empty = QString();
        const QVariant abc = QStringLiteral("abc");
        QTest::newRow("empty counts as never") << empty << empty << t0.addMSecs(700) << false << true;
        QTest::newRow("14 days") << installed << absent << in(14 * day) << false << false;
        QTest::newRow("14 days and 0.5 s") << installed << absent << in(14 * day).addMSecs(500) << true << false;
        QTest::newRow("120 days since the prompt") << installed << prompted << in(150 * day) << false << false;
        QTest::newRow("120 days and a second") << installed << prompted << in(150 * day + 1) << true << false;
        QTest::newRow("prompted before install") << at(200 * day) << installed << in(201 * day) << true << false;
        QTest::newRow("unparsable install") << abc << absent << in(400 * day) << false << false;
        QTest::newRow("unparsable last prompt") << installed << abc << in(400 * day) << false << false;
        QTest::newRow("clock before the prompt") << installed << at(300 * day) << in(200 * day) << false << false;
    }
    void policy()
    {
        QFETCH(QVariant, install);
        QFETCH(QVariant, lastPrompt);
        QFETCH(QDateTime, now);
        QFETCH(bool, answer);
        QFETCH(bool, recordsInstall);

        Rig rig;
        if (install.isValid())
            rig.store.setRawForTest(PreferenceKeys::installDateString, install);
        if (lastPrompt.isValid())
            rig.store.setRawForTest(PreferenceKeys::lastPromptDateString, lastPrompt);
        rig.now = now;

        QCOMPARE(rig.manager.shouldRequestReview(), answer);
        // Only a missing install date is ever written here: the check never
        // records a prompt, and a date that does not parse is left alone.
        QCOMPARE(rig.store.writtenKeys(),
                 recordsInstall ? QStringList{PreferenceKeys::installDateString} : QStringList());
        QCOMPARE(rig.requester.requests, 0);
    }

    void datesAreUtcWholeSecondsWithZ()
    {
        const QDateTime local(QDate(2024, 5, 1), QTime(11, 30, 5, 987), Qt::OffsetFromUTC, 7200);
        QCOMPARE(RatingManager::formatDate(local), QStringLiteral("2024-05-01T09:30:05Z"));
        // Looser forms are not read.
        for (const char *text : {"", "2024-05-01", "2024-05-01T09:30Z", "2024-05-01T09:30:00z", "2024-05-01T09:30:00",
                                 "2024-05-01T09:30:00.000Z", "2024-05-01T09:30:00+0200", "2024-02-30T09:30:00Z"})
            QVERIFY2(!RatingManager::parseDate(QString::fromLatin1(text)).has_value(), text);
    }

    void freshInstallPromptsAfterAFortnightRecordingTheDateFirst()
    {
        Rig rig;
        // The state it first shows in, whatever the platform started in, is
        // not a return; leaving never checks, nor does opening the review page.
        if (QGuiApplication::applicationState() != Qt::ApplicationActive)
            emit qGuiApp->applicationStateChanged(Qt::ApplicationActive);
        emit qGuiApp->applicationStateChanged(Qt::ApplicationSuspended);
        static_cast<WriteReviewOpener &>(rig.manager).openWriteReviewPage();
        QCOMPARE(rig.opener.opened, QList<QUrl>{QUrl(QStringLiteral("appstream://io.murvane.murvane"))});
        QCOMPARE(rig.store.writeCount(), 0);
        // First return: the install date is recorded, no prompt.
        rig.comeBack();
        QCOMPARE(rig.store.string(PreferenceKeys::installDateString), RatingManager::formatDate(t0));

        rig.now = in(14 * day + 1);
        rig.comeBack();
        const QString expected = QStringLiteral("2024-05-15T09:30:01Z");
        QCOMPARE(rig.store.string(PreferenceKeys::lastPromptDateString), expected);
        // The date is stored at once; the request itself waits for a later
        // turn of the event loop, so a prompt never goes unrecorded.
        QCOMPARE(rig.requester.requests, 0);
        QTRY_COMPARE(rig.requester.requests, 1);
    }
};

QTEST_MAIN(TestRatingManager)
#include "tst_ratingmanager.moc"
