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

QString at(qint64 seconds)
{
    return RatingManager::formatDate(in(seconds));
}

// Counts review requests, noting what the store held as the last prompt
// date at each one.
class FakeReviewRequester : public ReviewRequester
{
public:
    explicit FakeReviewRequester(const PreferencesStore &store)
        : m_store(store)
    {
    }
    void requestReview() override
    {
        lastPromptAtRequest << m_store.string(PreferenceKeys::lastPromptDateString).value_or(QString());
    }
    int requests() const { return int(lastPromptAtRequest.size()); }

    QStringList lastPromptAtRequest;

private:
    const PreferencesStore &m_store;
};

// A store, a settable clock and the doubles, wired to the app's manager.
struct Rig
{
    MemoryPreferencesStore store;
    QDateTime now = t0;
    FakeReviewRequester requester{store};
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
    // The window appearing: whatever state the platform started in, the
    // first activation is the initial one.
    void appear()
    {
        if (QGuiApplication::applicationState() != Qt::ApplicationActive)
            emit qGuiApp->applicationStateChanged(Qt::ApplicationActive);
    }
};

} // namespace

class TestRatingManager : public QObject
{
    Q_OBJECT

private slots:
    void policy_data()
    {
        QTest::addColumn<QVariant>("install");    // stored value; invalid = never written
        QTest::addColumn<QVariant>("lastPrompt"); // likewise
        QTest::addColumn<QDateTime>("now");
        QTest::addColumn<bool>("answer");
        QTest::addColumn<bool>("recordsInstall");

        const QVariant installed = at(0);
        const QVariant empty = QString();
        const QVariant abc = QStringLiteral("abc");
        const QVariant offset = QStringLiteral("2024-05-01T11:30:00+02:00");
        QTest::newRow("first check records the install date") << absent << absent << t0 << false << true;
        QTest::newRow("empty counts as never") << empty << empty << t0.addMSecs(700) << false << true;
        QTest::newRow("wrong type counts as never") << QVariant(qint64(5)) << absent << t0 << false << true;
        QTest::newRow("14 days to the second") << installed << empty << in(14 * day) << false << false;
        QTest::newRow("14 days and a second") << installed << empty << in(14 * day + 1) << true << false;
        QTest::newRow("14 days and half a second")
            << installed << absent << in(14 * day).addMSecs(500) << true << false;
        QTest::newRow("120 days to the second since the prompt")
            << installed << QVariant(at(30 * day)) << in(150 * day) << false << false;
        QTest::newRow("120 days and a second since the prompt")
            << installed << QVariant(at(30 * day)) << in(150 * day + 1) << true << false;
        QTest::newRow("install date irrelevant once prompted")
            << QVariant(at(200 * day)) << QVariant(at(0)) << in(201 * day) << true << false;
        QTest::newRow("unparsable install") << abc << absent << in(400 * day) << false << false;
        QTest::newRow("unparsable install, prompted") << abc << installed << in(400 * day) << false << false;
        QTest::newRow("unparsable last prompt") << installed << abc << in(400 * day) << false << false;
        QTest::newRow("offset, same instant") << offset << absent << in(14 * day + 1) << true << false;
        QTest::newRow("clock before install") << QVariant(at(10 * day)) << absent << t0 << false << false;
        QTest::newRow("clock before the last prompt")
            << installed << QVariant(at(300 * day)) << in(200 * day) << false << false;
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
        if (recordsInstall)
            QCOMPARE(rig.store.string(PreferenceKeys::installDateString), std::optional<QString>(at(0)));
        QCOMPARE(rig.requester.requests(), 0);
    }

    void datesAreUtcWholeSecondsWithZ()
    {
        const QDateTime local(QDate(2024, 5, 1), QTime(11, 30, 5, 987), Qt::OffsetFromUTC, 7200);
        QCOMPARE(RatingManager::formatDate(local), QStringLiteral("2024-05-01T09:30:05Z"));
        QCOMPARE(RatingManager::parseDate(RatingManager::formatDate(local)),
                 std::optional(QDateTime(QDate(2024, 5, 1), QTime(9, 30, 5), Qt::UTC)));
        // Looser forms are not read.
        for (const char *text : {"", "abc", "2024-05-01", "2024-05-01T09:30Z", "2024-05-01 09:30:00Z",
                                 "2024-05-01T09:30:00z", "2024-05-01T09:30:00", "2024-05-01T09:30:00.000Z",
                                 "2024-05-01T09:30:00+0200", " 2024-05-01T09:30:00Z", "2024-13-01T09:30:00Z",
                                 "2024-02-30T09:30:00Z", "2024-05-01T25:00:00Z"})
            QVERIFY2(!RatingManager::parseDate(QString::fromLatin1(text)).has_value(), text);
    }

    void managerGoneBeforeTheNextTurnAsksForNothing()
    {
        Rig rig;
        auto manager = std::make_unique<RatingManager>(rig.store, [] { return t0; }, rig.requester,
                                                       rig.opener);
        manager->requestReview();
        manager.reset();
        QTest::qWait(20);
        QCOMPARE(rig.requester.requests(), 0);
    }

    void writeReviewPageOpensWithoutTouchingTheDates()
    {
        Rig rig;
        rig.store.setString(PreferenceKeys::installDateString, QStringLiteral("abc"));
        rig.store.resetWriteLog();
        WriteReviewOpener &rateEntry = rig.manager;
        rateEntry.openWriteReviewPage();
        QCOMPARE(rig.opener.opened, QList<QUrl>{QUrl(QStringLiteral("appstream://io.murvane.murvane"))});
        QCOMPARE(rig.store.writeCount(), 0);
    }

    void freshInstallPromptsAfterAFortnightRecordingTheDateFirst()
    {
        Rig rig;
        // The state it first shows in is not a return; leaving never checks.
        rig.appear();
        for (auto state : {Qt::ApplicationInactive, Qt::ApplicationHidden, Qt::ApplicationSuspended})
            emit qGuiApp->applicationStateChanged(state);
        QCOMPARE(rig.store.writeCount(), 0);
        // First return: the install date is recorded, no prompt.
        rig.comeBack();
        QCOMPARE(rig.store.string(PreferenceKeys::installDateString), RatingManager::formatDate(t0));
        rig.now = in(14 * day);
        rig.comeBack();
        QTest::qWait(10);
        QCOMPARE(rig.requester.requests(), 0);

        rig.now = in(14 * day + 1);
        rig.comeBack();
        const QString expected = QStringLiteral("2024-05-15T09:30:01Z");
        QCOMPARE(rig.store.string(PreferenceKeys::lastPromptDateString), expected);
        // The request itself waits for a later turn of the event loop, and by
        // then the date was already stored.
        QCOMPARE(rig.requester.requests(), 0);
        QTRY_COMPARE(rig.requester.lastPromptAtRequest, QStringList{expected});

        // Coming back again soon after asks nothing more.
        rig.now = rig.now.addSecs(60);
        rig.comeBack();
        QTest::qWait(10);
        QCOMPARE(rig.requester.requests(), 1);
    }
};

QTEST_MAIN(TestRatingManager)
#include "tst_ratingmanager.moc"
