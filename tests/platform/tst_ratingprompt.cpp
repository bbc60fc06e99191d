#include "RecordingUrlOpener.h"
#include "platform/RatingPrompt.h"
#include "platform/WriteReviewLink.h"

#include <QSignalSpy>
#include <QTest>

class TestRatingPrompt : public QObject
{
    Q_OBJECT

private slots:
    void links()
    {
        QCOMPARE(WriteReviewLink::forSoftwareCentre(QStringLiteral("io.murvane.murvane")).toString(),
                 QStringLiteral("appstream://io.murvane.murvane"));
        QVERIFY(!WriteReviewLink::forSoftwareCentre(QString()).isValid());
        QCOMPARE(WriteReviewLink::forAppStore(QStringLiteral("1234567890")).toString(),
                 QStringLiteral("itms-apps://apps.apple.com/app/id1234567890?action=write-review"));
        for (const char *bad : {"", "12a4", " 123", "123/456"})
            QVERIFY2(!WriteReviewLink::forAppStore(QString::fromLatin1(bad)).isValid(), bad);
        // This build is a Linux one.
        QCOMPARE(WriteReviewLink::current(), QUrl(QStringLiteral("appstream://io.murvane.murvane")));
    }

    void requestShowsThePromptWhenItCanLeadSomewhere_data()
    {
        QTest::addColumn<bool>("foreground");
        QTest::addColumn<bool>("handler");
        QTest::addColumn<bool>("shown");
        QTest::newRow("in front, software centre present") << true << true << true;
        QTest::newRow("in the background") << false << true << false;
        QTest::newRow("no software centre") << true << false << false;
    }
    void requestShowsThePromptWhenItCanLeadSomewhere()
    {
        QFETCH(bool, foreground);
        QFETCH(bool, handler);
        QFETCH(bool, shown);
        RecordingUrlOpener opener;
        opener.handlerExists = handler;
        RatingPrompt prompt(opener, [foreground] { return foreground; });
        QSignalSpy spy(&prompt, &RatingPrompt::shownChanged);
        prompt.requestReview();
        QCOMPARE(prompt.isShown(), shown);
        QCOMPARE(spy.count(), shown ? 1 : 0);
        QVERIFY(opener.opened.isEmpty());
    }

    void rateOpensTheReviewPageAndCloses()
    {
        RecordingUrlOpener opener;
        RatingPrompt prompt(opener, [] { return true; });
        prompt.requestReview();
        // A second request while it is up changes nothing.
        QSignalSpy spy(&prompt, &RatingPrompt::shownChanged);
        prompt.requestReview();
        QCOMPARE(spy.count(), 0);

        prompt.rate();
        QVERIFY(!prompt.isShown());
        QCOMPARE(spy.count(), 1);
        QCOMPARE(opener.opened, QList<QUrl>{WriteReviewLink::current()});
    }

    void dismissClosesWithoutOpening()
    {
        RecordingUrlOpener opener;
        RatingPrompt prompt(opener, [] { return true; });
        prompt.requestReview();
        prompt.dismiss();
        QVERIFY(!prompt.isShown());
        QVERIFY(opener.opened.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestRatingPrompt)
#include "tst_ratingprompt.moc"
