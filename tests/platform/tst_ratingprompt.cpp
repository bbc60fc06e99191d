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
        QVERIFY(!WriteReviewLink::forSoftwareCentre(QString()).isValid());
        QCOMPARE(WriteReviewLink::forAppStore(QStringLiteral("1234567890")).toString(),
                 QStringLiteral("itms-apps://apps.apple.com/app/id1234567890?action=write-review"));
        for (const char *bad : {"", "12a4", " 123", "123/456"})
            QVERIFY2(!WriteReviewLink::forAppStore(QString::fromLatin1(bad)).isValid(), bad);
    }

    // Shown only in front with a software centre; a second request while it
    // is up changes nothing. (Its buttons are tested through the view.)
    void requestShowsThePromptOnlyInFrontWithASoftwareCentre()
    {
        for (const auto &[foreground, handler] : {std::pair{true, true}, {false, true}, {true, false}}) {
            RecordingUrlOpener opener;
            opener.handlerExists = handler;
            RatingPrompt prompt(opener, [front = foreground] { return front; });
            prompt.requestReview();
            QSignalSpy spy(&prompt, &RatingPrompt::shownChanged);
            prompt.requestReview();
            QCOMPARE(prompt.isShown(), foreground && handler);
            QCOMPARE(spy.count(), 0);
            QVERIFY(opener.opened.isEmpty());
        }
    }

    // Whether a software centre is installed decides whether the prompt shows.
    void findsHandlers()
    {
        // A file under the data or config folder, its text, whether it names a handler.
        const struct
        {
            const char *file;
            const char *text;
            bool found;
        } cases[] = {
            {nullptr, nullptr, false},
            {"data/applications/mimeinfo.cache",
             "[MIME Cache]\nx-scheme-handler/appstream=org.gnome.Software.desktop;\n", true},
            {"config/mimeapps.list", "[Default Applications]\nx-scheme-handler/appstream=discover.desktop\n", true},
            {"config/mimeapps.list",
             "[Removed Associations]\nx-scheme-handler/appstream=org.gnome.Software.desktop;\n", false},
            {"data/applications/mimeinfo.cache",
             "[MIME Cache]\nx-scheme-handler/appstreamx=a.desktop;\nx-scheme-handler/apt=b.desktop;\n", false},
            {"data/applications/mimeinfo.cache", "[MIME Cache]\nx-scheme-handler/appstream=\n", false},
            {"data/applications/store.desktop",
             "[Desktop Entry]\nName=Store\nExec=store %U\nMimeType=x-scheme-handler/apt;x-scheme-handler/appstream;\n",
             true},
            {"data/applications/viewer.desktop",
             "[Desktop Entry]\nName=Viewer\nMimeType=image/png;x-scheme-handler/appstreamx;\n", false},
        };
        for (const auto &c : cases) {
            QTemporaryDir root;
            if (c.file) {
                QVERIFY(QDir(root.path()).mkpath(QFileInfo(root.filePath(QLatin1String(c.file))).path()));
                QFile f(root.filePath(QLatin1String(c.file)));
                QVERIFY(f.open(QIODevice::WriteOnly));
                f.write(c.text);
            }
            QVERIFY2(SchemeHandlers::exists(QStringLiteral("appstream"), {root.filePath(QStringLiteral("data"))},
                                            {root.filePath(QStringLiteral("config"))})
                         == c.found,
                     c.file ? c.file : "nothing installed");
        }
    }
};

QTEST_GUILESS_MAIN(TestRatingPrompt)
#include "tst_ratingprompt.moc"
