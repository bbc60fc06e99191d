#include "FakeReviewRequester.h"
#include "RecordingUrlOpener.h"
#include "app/MurvaneApp.h"
#include "app/RatingManager.h"
#include "platform/MemoryPreferencesStore.h"

#include <QGuiApplication>
#include <QTest>

namespace {

const QDateTime t0 = QDateTime(QDate(2024, 5, 1), QTime(9, 30), Qt::UTC);
constexpr qint64 day = 86'400;

struct Rig
{
    MemoryPreferencesStore store;
    QDateTime now = t0;
    FakeReviewRequester requester{store};
    RecordingUrlOpener opener;
    MurvaneApp app{std::make_unique<RatingManager>(store, [this] { return now; }, requester, opener)};

    // Brings the app to the front after it was away.
    void comeBack()
    {
        app.applicationStateChanged(Qt::ApplicationInactive);
        app.applicationStateChanged(Qt::ApplicationActive);
    }
    // The window appearing: whatever state the platform started in, the
    // first activation is the initial one.
    void appear()
    {
        if (QGuiApplication::applicationState() != Qt::ApplicationActive)
            app.applicationStateChanged(Qt::ApplicationActive);
    }
};

} // namespace

class TestMurvaneApp : public QObject
{
    Q_OBJECT

private slots:
    void initialActiveStateDoesNotCount()
    {
        Rig rig;
        rig.store.setString(PreferenceKeys::installDateString, RatingManager::formatDate(t0));
        rig.store.resetWriteLog();
        rig.now = t0.addSecs(30 * day);
        rig.appear();
        QTest::qWait(10);
        // Not even the check ran: nothing was written.
        QCOMPARE(rig.store.writeCount(), 0);
        QCOMPARE(rig.requester.requests(), 0);
    }

    void promptIsRecordedBeforeItIsRequested()
    {
        Rig rig;
        rig.store.setString(PreferenceKeys::installDateString, RatingManager::formatDate(t0));
        rig.now = t0.addSecs(15 * day);
        rig.appear();
        rig.comeBack();
        const QString expected = QStringLiteral("2024-05-16T09:30:00Z");
        QCOMPARE(rig.store.string(PreferenceKeys::lastPromptDateString), std::optional<QString>(expected));
        // The request itself waits for a later turn of the event loop...
        QCOMPARE(rig.requester.requests(), 0);
        QTRY_COMPARE(rig.requester.requests(), 1);
        // ...and by then the date was already stored.
        QCOMPARE(rig.requester.lastPromptAtRequest, QStringList{expected});

        // Coming back again soon after asks nothing more.
        rig.now = rig.now.addSecs(60);
        rig.comeBack();
        QTest::qWait(10);
        QCOMPARE(rig.requester.requests(), 1);
        QCOMPARE(rig.store.string(PreferenceKeys::lastPromptDateString), std::optional<QString>(expected));
    }

    void leavingTheAppNeverPrompts()
    {
        Rig rig;
        rig.store.setString(PreferenceKeys::installDateString, RatingManager::formatDate(t0));
        rig.store.resetWriteLog();
        rig.now = t0.addSecs(400 * day);
        rig.appear();
        for (Qt::ApplicationState state :
             {Qt::ApplicationInactive, Qt::ApplicationHidden, Qt::ApplicationSuspended, Qt::ApplicationInactive})
            rig.app.applicationStateChanged(state);
        QTest::qWait(10);
        QCOMPARE(rig.store.writeCount(), 0);
        QCOMPARE(rig.requester.requests(), 0);
    }

    void freshInstallFlow()
    {
        Rig rig;
        rig.appear();
        // First return: the install date is recorded, no prompt.
        rig.comeBack();
        QCOMPARE(rig.store.string(PreferenceKeys::installDateString),
                 std::optional<QString>(QStringLiteral("2024-05-01T09:30:00Z")));
        // Back many times within the fortnight: nothing changes.
        for (qint64 d : {1, 5, 14}) {
            rig.now = t0.addSecs(d * day);
            rig.comeBack();
        }
        QTest::qWait(10);
        QCOMPARE(rig.requester.requests(), 0);
        QVERIFY(!rig.store.contains(PreferenceKeys::lastPromptDateString));

        rig.now = t0.addSecs(14 * day + 1);
        rig.comeBack();
        QTRY_COMPARE(rig.requester.requests(), 1);
    }

    void followsTheApplicationState()
    {
        Rig rig;
        rig.store.setString(PreferenceKeys::installDateString, RatingManager::formatDate(t0));
        rig.now = t0.addSecs(20 * day);
        // Through the application's own signal, as the platform sends it.
        for (Qt::ApplicationState state : {Qt::ApplicationActive, Qt::ApplicationInactive, Qt::ApplicationActive,
                                           Qt::ApplicationInactive, Qt::ApplicationActive})
            emit qGuiApp->applicationStateChanged(state);
        QTRY_COMPARE(rig.requester.requests(), 1);
    }
};

QTEST_MAIN(TestMurvaneApp)
#include "tst_murvaneapp.moc"
