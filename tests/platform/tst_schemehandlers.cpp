#include "platform/SchemeHandlers.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {
void write(const QString &path, const QByteArray &text)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}
} // namespace

class TestSchemeHandlers : public QObject
{
    Q_OBJECT

private slots:
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
        if (!file.isEmpty())
            write(root.filePath(file), text);
        QCOMPARE(SchemeHandlers::exists(QStringLiteral("appstream"), {root.filePath(QStringLiteral("data"))},
                                        {root.filePath(QStringLiteral("config"))}),
                 found);
    }

    void schemeIsCaseInsensitive()
    {
        QTemporaryDir root;
        write(root.filePath(QStringLiteral("data/applications/mimeinfo.cache")),
              "[MIME Cache]\nx-scheme-handler/appstream=s.desktop;\n");
        QVERIFY(SchemeHandlers::exists(QStringLiteral("AppStream"), {root.filePath(QStringLiteral("data"))}, {}));
        QVERIFY(!SchemeHandlers::exists(QString(), {root.filePath(QStringLiteral("data"))}, {}));
    }
};

QTEST_GUILESS_MAIN(TestSchemeHandlers)
#include "tst_schemehandlers.moc"
