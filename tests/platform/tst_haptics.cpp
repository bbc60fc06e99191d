#include "RecordingHaptics.h"
#include "platform/Haptics.h"

#include <QTest>

class TestHaptics : public QObject
{
    Q_OBJECT

private slots:
    void standardRoutesToTheInstalledDouble()
    {
        // Nothing installed: haptics are silently dropped.
        Haptics::standard().lightImpact();
        {
            RecordingHaptics recording;
            Haptics::standard().lightImpact();
            Haptics::standard().successNotification();
            Haptics::standard().lightImpact();
            using E = RecordingHaptics::Event;
            QCOMPARE(recording.events, QList<E>({E::lightImpact, E::successNotification, E::lightImpact}));
            QCOMPARE(recording.count(E::lightImpact), 2);
        }
        // The double is gone and so is its registration.
        QVERIFY(dynamic_cast<RecordingHaptics *>(&Haptics::standard()) == nullptr);
        Haptics::standard().successNotification();
    }
};

QTEST_GUILESS_MAIN(TestHaptics)
#include "tst_haptics.moc"
