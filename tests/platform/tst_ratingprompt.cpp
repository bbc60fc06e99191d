#include "RecordingUrlOpener.h"
#include "platform/RatingPrompt.h"
#include "platform/SchemeHandlers.h"
#include "platform/WriteReviewLink.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

class TestRatingPrompt : public QObject
{
    Q_OBJECT

private slots:
    void links()
    {
        QCOMPARE(WriteReviewLink::current(), QUrl(QStringLiteral("appstream://io.murvane.murvane")));
        QVERIFY(!WriteReviewLink::forSoftwareCentre(QString()).isValid());
        QCOMPARE(WriteReviewLink::forAppStore(QStringLiteral("1234567890")).toString(),
                 QStringLiteral("itms-apps://apps.apple.com/app/id1234567890?action=write-review"));
        for (const char *bad : {"", "12a4", " 123", "123/456"})
            QVERIFY2(!WriteReviewLink::forAppStore(QString::fromLatin1(bad)).isValid(), bad);
    }

    void requestShowsThePromptOnlyInFrontWithASoftwareCentre()
    {
        for (const auto &[foreground, handler] : {std::pair{true, true}, {false, true}, {true, false}}) {
            RecordingUrlOpener opener;
            opener.handlerExists = handler;
            RatingPrompt prompt(opener, [front = foreground] { return front; });
            prompt.requestReview();
            QCOMPARE(prompt.isShown(), foreground && handler);
            QVERIFY(opener.opened.isEmpty());
        }
        // A second request while it is up changes nothing. (Its buttons are
        // tested through the view.)
        RecordingUrlOpener opener;
        RatingPrompt prompt(opener, [] { return true; });
        prompt.requestReview();
        QSignalSpy spy(&prompt, &RatingPrompt::shownChanged);
        prompt.requestReview();
        QCOMPARE(spy.count(), 0);
        QVERIFY(prompt.isShown());
    }

    // Whether a software centre is installed decides whether the prompt shows.
    void findsHandlers_data()
    {
        QTest::addColumn<QString>("file"); // relative to the data or config folder
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<bool>("found");

        QTest::newRow("nothing installed") << QString() << QByteArray() << false;
        QTest::newRow("mime cache") << "data/applications/mimeinfo.cache"
                                    << QByteArray("[MIME Cache]\nx-scheme-handler/appstream=org.gnome.Software.desktop;\n")
                                    << true;
        QTest::newRow("user default") << "config/mimeapps.list"
                                      << QByteArray("[Default Applications]\nx-scheme-handler/appstream=discover.desktop\n")
                                      << true;
        QTest::newRow("removed association only")
            << "config/mimeapps.list"
            << QByteArray("[Removed Associations]\nx-scheme-handler/appstream=org.gnome.Software.desktop;\n") << false;
        QTest::newRow("another scheme only")
            << "data/applications/mimeinfo.cache"
            << QByteArray("[MIME Cache]\nx-scheme-handler/appstreamx=a.desktop;\nx-scheme-handler/apt=b.desktop;\n")
            << false;
        QTest::newRow("empty handler list") << "data/applications/mimeinfo.cache"
                                            << QByteArray("[MIME Cache]\nx-scheme-handler/appstream=\n") << false;
        QTest::newRow("desktop file without cache")
            << "data/applications/store.desktop"
            << QByteArray("[Desktop Entry]\nName=Store\nExec=store %U\nMimeType=x-scheme-handler/apt;x-scheme-handler/appstream;\n")
            << true;
        QTest::newRow("desktop file for other types")
            << "data/applications/viewer.desktop"
            << QByteArray("[Desktop Entry]\nName=Viewer\nMimeType=image/png;x-scheme-handler/appstreamx;\n") << false;
    }
    void findsHandlers()
    {
        QFETCH(QString, file);
        QFETCH(QByteArray, text);
        QFETCH(bool, found);
        QTemporaryDir root;
        if (!file.isEmpty()) {
            QVERIFY(QDir(root.path()).mkpath(QFileInfo(file).path()));
            QFile f(root.filePath(file));
            QVERIFY(f.open(QIODevice::WriteOnly));
            f.write(text);
        }
        QCOMPARE(SchemeHandlers::exists(QStringLiteral("appstream"), {root.filePath(QStringLiteral("data"))},
                                        {root.filePath(QStringLiteral("config"))}),
                 found);
    }
};

QTEST_GUILESS_MAIN(TestRatingPrompt)
#include "tst_ratingprompt.moc"
