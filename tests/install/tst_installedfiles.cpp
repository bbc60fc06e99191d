// The installed tree, as `cmake --install` lays it out under a staging root:
// every file a desktop or phone shell needs is there, and all of them name
// the app by the same id as the app itself and its write-review link.

#include "platform/AppIdentity.h"
#include "platform/WriteReviewLink.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

namespace {

QString readAll(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// Every capture of `pattern` in `text`, in order.
QStringList captures(const QString &text, const QString &pattern)
{
    QStringList out;
    for (const auto &match : QRegularExpression(pattern, QRegularExpression::MultilineOption).globalMatch(text))
        out << match.captured(1).trimmed();
    return out;
}

} // namespace

class TestInstalledFiles : public QObject
{
    Q_OBJECT

    QString m_prefix = qEnvironmentVariable("MURVANE_PREFIX");
    QString m_root = qEnvironmentVariable("MURVANE_STAGE") + m_prefix;
    const QString m_id = AppIdentity::appId;

    QString installed(const QString &relative) const { return m_root + u'/' + QString(relative).replace(QLatin1String("%1"), m_id); }

private slots:
    void initTestCase()
    {
        QVERIFY2(m_prefix.startsWith(u'/') && QFileInfo(m_root).isDir(), "MURVANE_STAGE and MURVANE_PREFIX must be set");
    }

    void everyFileIsInPlace_data()
    {
        QTest::addColumn<QString>("path");
        for (const char *path : {"bin/murvane", "share/applications/%1.desktop", "share/dbus-1/services/%1.service",
                                 "share/metainfo/%1.metainfo.xml", "share/icons/hicolor/scalable/apps/%1.svg",
                                 "share/icons/hicolor/symbolic/apps/%1-symbolic.svg",
                                 "share/icons/hicolor/16x16/apps/%1.svg"})
            QTest::newRow(path) << QString::fromLatin1(path);
    }

    void everyFileIsInPlace()
    {
        QFETCH(QString, path);
        const QFileInfo file(installed(path));
        QVERIFY2(file.isFile() && file.size() > 0, qPrintable(file.filePath()));
        QCOMPARE(file.isExecutable(), path.startsWith(QLatin1String("bin/")));
        if (!path.endsWith(QLatin1String(".svg")))
            return;
        const QString text = readAll(file.filePath());
        // Square, so shells neither crop nor stretch it.
        const QStringList size = captures(text, QStringLiteral("<svg[^>]* width=\"(\\d+)\""))
            + captures(text, QStringLiteral("<svg[^>]* height=\"(\\d+)\""));
        QCOMPARE(size.size(), 2);
        QCOMPARE(size[0], size[1]);
        // A symbolic icon is recoloured by the theme: one colour only.
        const QStringList colours = captures(text.toLower(), QStringLiteral("(#[0-9a-f]{3,8})\\b"));
        if (path.contains(QLatin1String("symbolic")))
            QCOMPARE(QSet<QString>(colours.begin(), colours.end()).size(), 1);
    }

    // The shell finds the icon, the D-Bus activation and the software-centre
    // page all by the app's own id; the desktop file and the D-Bus service
    // start the binary that was installed; "Rate Murvane!" opens that page.
    void filesNameTheAppAndItsBinary()
    {
        const QString desktop = readAll(installed(QStringLiteral("share/applications/%1.desktop")));
        const QString service = readAll(installed(QStringLiteral("share/dbus-1/services/%1.service")));
        const QString meta = readAll(installed(QStringLiteral("share/metainfo/%1.metainfo.xml")));
        const auto key = [](const QString &file, const char *name) {
            return captures(file, QStringLiteral("^%1=(.*)$").arg(QLatin1String(name)));
        };
        const auto element = [&](const char *name) { return captures(meta, QStringLiteral("<%1\\b[^>]*>([^<]*)</%1>").arg(QLatin1String(name))); };
        const QString binary = m_prefix + QStringLiteral("/bin/murvane");
        QCOMPARE(key(desktop, "Icon"), QStringList{m_id});
        QCOMPARE(key(desktop, "DBusActivatable"), QStringList{QStringLiteral("true")});
        QCOMPARE(key(desktop, "Exec").value(0).section(u' ', 0, 0), binary);
        QCOMPARE(key(service, "Name"), QStringList{m_id});
        QCOMPARE(key(service, "Exec").value(0).section(u' ', 0, 0), binary);
        QCOMPARE(element("id"), QStringList{m_id});
        QCOMPARE(element("launchable"), QStringList{m_id + QStringLiteral(".desktop")});
        QCOMPARE(element("dbus"), QStringList{m_id});
        QCOMPARE(element("binary"), QStringList{QStringLiteral("murvane")});
        for (const char *control : {"touch", "keyboard"})
            QVERIFY2(element("control").contains(QLatin1String(control)), control);
        QCOMPARE(WriteReviewLink::current(), QUrl(QStringLiteral("appstream://") + m_id));
    }
};

QTEST_GUILESS_MAIN(TestInstalledFiles)
#include "tst_installedfiles.moc"
