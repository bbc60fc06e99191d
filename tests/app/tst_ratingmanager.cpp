#include "FakeReviewRequester.h"
#include "RecordingUrlOpener.h"
#include "app/RatingManager.h"
#include "platform/MemoryPreferencesStore.h"

#include <QTest>
#include <memory>

namespace {

const QDateTime t0 = QDateTime(QDate(2024, 5, 1), QTime(9, 30), Qt::UTC);
constexpr qint64 day = 86'400;

QString at(qint64 seconds)
{
    return RatingManager::formatDate(t0.addSecs(seconds));
}

// A store, a settable clock and the two doubles, wired to one manager.
struct Rig
{
    MemoryPreferencesStore store;
    QDateTime now = t0;
    FakeReviewRequester requester{store};
    RecordingUrlOpener opener;
    std::unique_ptr<RatingManager> manager =
        std::make_unique<RatingManager>(store, [this] { return now; }, requester, opener);
};

const QVariant absent;

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
        QTest::addColumn<QString>("installAfter"); // what the store holds afterwards
        QTest::addColumn<int>("writes");

        const QVariant installed = at(0);
        QTest::newRow("first check records the install date")
            << absent << absent << t0 << false << at(0) << 1;
        QTest::newRow("empty install date counts as never")
            << QVariant(QString()) << QVariant(QString()) << t0.addMSecs(700) << false << at(0) << 1;
        QTest::newRow("install date of the wrong type counts as never")
            << QVariant(qint64(5)) << absent << t0 << false << at(0) << 1;
        QTest::newRow("13 days") << installed << absent << t0.addSecs(13 * day) << false << at(0) << 0;
        QTest::newRow("14 days to the second")
            << installed << QVariant(QString()) << t0.addSecs(14 * day) << false << at(0) << 0;
        QTest::newRow("14 days and a second")
            << installed << QVariant(QString()) << t0.addSecs(14 * day + 1) << true << at(0) << 0;
        QTest::newRow("14 days and half a second")
            << installed << absent << t0.addSecs(14 * day).addMSecs(500) << true << at(0) << 0;
        QTest::newRow("120 days to the second since the prompt")
            << installed << QVariant(at(30 * day)) << t0.addSecs(150 * day) << false << at(0) << 0;
        QTest::newRow("120 days and a second since the prompt")
            << installed << QVariant(at(30 * day)) << t0.addSecs(150 * day + 1) << true << at(0) << 0;
        QTest::newRow("a year after install, prompted 119 days ago")
            << installed << QVariant(at(246 * day)) << t0.addSecs(365 * day) << false << at(0) << 0;
        QTest::newRow("install date irrelevant once prompted")
            << QVariant(at(200 * day)) << QVariant(at(0)) << t0.addSecs(201 * day) << true << at(200 * day) << 0;
        QTest::newRow("install abc") << QVariant(QStringLiteral("abc")) << absent << t0.addSecs(400 * day)
                                     << false << QStringLiteral("abc") << 0;
        QTest::newRow("install abc with an old prompt")
            << QVariant(QStringLiteral("abc")) << QVariant(at(0)) << t0.addSecs(400 * day) << false
            << QStringLiteral("abc") << 0;
        QTest::newRow("last prompt abc")
            << installed << QVariant(QStringLiteral("abc")) << t0.addSecs(400 * day) << false << at(0) << 0;
        QTest::newRow("install date without Z") << QVariant(QStringLiteral("2024-05-01T09:30:00")) << absent
                                                << t0.addSecs(100 * day) << false
                                                << QStringLiteral("2024-05-01T09:30:00") << 0;
        QTest::newRow("last prompt without Z")
            << installed << QVariant(QStringLiteral("2024-05-01T09:30:00")) << t0.addSecs(400 * day) << false
            << at(0) << 0;
        QTest::newRow("install date with fractional seconds")
            << QVariant(QStringLiteral("2024-05-01T09:30:00.000Z")) << absent << t0.addSecs(100 * day) << false
            << QStringLiteral("2024-05-01T09:30:00.000Z") << 0;
        QTest::newRow("impossible install date")
            << QVariant(QStringLiteral("2024-02-30T09:30:00Z")) << absent << t0.addSecs(100 * day) << false
            << QStringLiteral("2024-02-30T09:30:00Z") << 0;
        QTest::newRow("install date with an offset is the same instant")
            << QVariant(QStringLiteral("2024-05-01T11:30:00+02:00")) << absent << t0.addSecs(14 * day + 1)
            << true << QStringLiteral("2024-05-01T11:30:00+02:00") << 0;
        QTest::newRow("clock before the install date")
            << QVariant(at(10 * day)) << absent << t0 << false << at(10 * day) << 0;
        QTest::newRow("clock before the last prompt")
            << installed << QVariant(at(300 * day)) << t0.addSecs(200 * day) << false << at(0) << 0;
    }
    void policy()
    {
        QFETCH(QVariant, install);
        QFETCH(QVariant, lastPrompt);
        QFETCH(QDateTime, now);
        QFETCH(bool, answer);
        QFETCH(QString, installAfter);
        QFETCH(int, writes);

        Rig rig;
        if (install.isValid())
            rig.store.setRawForTest(PreferenceKeys::installDateString, install);
        if (lastPrompt.isValid())
            rig.store.setRawForTest(PreferenceKeys::lastPromptDateString, lastPrompt);
        rig.now = now;

        QCOMPARE(rig.manager->shouldRequestReview(), answer);
        QCOMPARE(rig.store.writeCount(), writes);
        if (writes > 0)
            QCOMPARE(rig.store.writtenKeys(), QStringList{PreferenceKeys::installDateString});
        QCOMPARE(rig.store.string(PreferenceKeys::installDateString), std::optional<QString>(installAfter));
        // The check never records a prompt; that is the caller's job.
        if (lastPrompt.isValid())
            QCOMPARE(rig.store.string(PreferenceKeys::lastPromptDateString), lastPrompt.toString());
        else
            QVERIFY(!rig.store.contains(PreferenceKeys::lastPromptDateString));
        QCOMPARE(rig.requester.requests(), 0);
    }

    void formatIsUtcWholeSecondsWithZ()
    {
        const QDateTime local(QDate(2024, 5, 1), QTime(11, 30, 5, 987), Qt::OffsetFromUTC, 7200);
        QCOMPARE(RatingManager::formatDate(local), QStringLiteral("2024-05-01T09:30:05Z"));
        const auto parsed = RatingManager::parseDate(RatingManager::formatDate(local));
        QVERIFY(parsed.has_value());
        QCOMPARE(*parsed, QDateTime(QDate(2024, 5, 1), QTime(9, 30, 5), Qt::UTC));
    }

    void parseRejectsLooseForms_data()
    {
        QTest::addColumn<QString>("text");
        for (const char *text : {"", "abc", "2024-05-01", "2024-05-01T09:30Z", "2024-05-01 09:30:00Z",
                                 "2024-05-01T09:30:00z", "2024-05-01T09:30:00+0200", " 2024-05-01T09:30:00Z",
                                 "2024-13-01T09:30:00Z", "2024-05-01T25:00:00Z"})
            QTest::newRow(text) << QString::fromLatin1(text);
    }
    void parseRejectsLooseForms()
    {
        QFETCH(QString, text);
        QVERIFY(!RatingManager::parseDate(text).has_value());
    }

    void requestReviewIsDeferred()
    {
        Rig rig;
        rig.manager->requestReview();
        QCOMPARE(rig.requester.requests(), 0);
        QTRY_COMPARE(rig.requester.requests(), 1);

        // A manager gone before the next turn asks for nothing.
        rig.manager->requestReview();
        rig.manager.reset();
        QTest::qWait(20);
        QCOMPARE(rig.requester.requests(), 1);
    }

    void writeReviewPageLeavesTheDatesAlone()
    {
        Rig rig;
        rig.store.setString(PreferenceKeys::installDateString, QStringLiteral("abc"));
        rig.store.resetWriteLog();
        rig.manager->openWriteReviewPage();
        QCOMPARE(rig.opener.opened, QList<QUrl>{QUrl(QStringLiteral("appstream://io.murvane.murvane"))});
        QCOMPARE(rig.store.writeCount(), 0);
        QCOMPARE(rig.requester.requests(), 0);
    }

    void defaultManagerUsesTheStandardStore()
    {
        MemoryPreferencesStore store;
        PreferencesStore::setStandard(&store);
        RatingManager manager;
        QVERIFY(!manager.shouldRequestReview());
        QVERIFY(RatingManager::parseDate(store.string(PreferenceKeys::installDateString).value_or(QString())));
        PreferencesStore::setStandard(nullptr);
    }
};

QTEST_GUILESS_MAIN(TestRatingManager)
#include "tst_ratingmanager.moc"
