// The installed tree, as `cmake --install` lays it out under a staging root:
// every file a desktop or phone shell needs is there, and all of them name
// the app by the same id as the app itself and its write-review link.

#include "platform/AppIdentity.h"
#include "platform/WriteReviewLink.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QXmlStreamReader>

namespace {

// The keys of one group of a desktop-entry style file (.desktop, D-Bus .service).
QHash<QString, QString> readGroup(const QString &path, const QString &group)
{
    QHash<QString, QString> keys;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return keys;
    bool inGroup = false;
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        if (line.startsWith(QLatin1Char('[')))
            inGroup = line == QLatin1Char('[') + group + QLatin1Char(']');
        else if (inGroup && line.contains(QLatin1Char('=')) && !line.startsWith(QLatin1Char('#')))
            keys.insert(line.section(QLatin1Char('='), 0, 0).trimmed(), line.section(QLatin1Char('='), 1).trimmed());
    }
    return keys;
}

// The text of every element of an XML file, by its path from the root
// ("component/provides/binary"), in document order.
QMultiHash<QString, QString> readXmlTexts(const QString &path)
{
    QMultiHash<QString, QString> texts;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return texts;
    QXmlStreamReader xml(&file);
    QStringList open;
    QString text;
    while (!xml.atEnd()) {
        switch (xml.readNext()) {
        case QXmlStreamReader::StartElement:
            open.append(xml.name().toString());
            text.clear();
            break;
        case QXmlStreamReader::Characters:
            text += xml.text();
            break;
        case QXmlStreamReader::EndElement:
            texts.insert(open.join(QLatin1Char('/')), text.trimmed());
            open.removeLast();
            text.clear();
            break;
        default:
            break;
        }
    }
    if (xml.hasError())
        texts.clear();
    return texts;
}

} // namespace

class TestInstalledFiles : public QObject
{
    Q_OBJECT

private:
    // <staging root>/<prefix>/<relative>
    QString installed(const QString &relative) const { return m_root + QLatin1Char('/') + relative; }
    // A path as the installed files write it (<prefix>/...), inside the staging root.
    QString staged(const QString &absolute) const { return m_stage + absolute; }

    QString m_stage;
    QString m_prefix;
    QString m_root;
    const QString m_id = AppIdentity::appId;

private slots:
    void initTestCase()
    {
        m_stage = qEnvironmentVariable("MURVANE_STAGE");
        m_prefix = qEnvironmentVariable("MURVANE_PREFIX");
        QVERIFY2(!m_stage.isEmpty() && m_prefix.startsWith(QLatin1Char('/')), "MURVANE_STAGE and MURVANE_PREFIX must be set");
        m_root = m_stage + m_prefix;
        QVERIFY2(QFileInfo(m_root).isDir(), qPrintable(m_root));
    }

    void everyFileIsInPlace_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("binary") << QStringLiteral("bin/murvane");
        QTest::newRow("desktop file") << QStringLiteral("share/applications/%1.desktop").arg(m_id);
        QTest::newRow("D-Bus service") << QStringLiteral("share/dbus-1/services/%1.service").arg(m_id);
        QTest::newRow("metainfo") << QStringLiteral("share/metainfo/%1.metainfo.xml").arg(m_id);
        QTest::newRow("scalable icon") << QStringLiteral("share/icons/hicolor/scalable/apps/%1.svg").arg(m_id);
        QTest::newRow("symbolic icon") << QStringLiteral("share/icons/hicolor/symbolic/apps/%1-symbolic.svg").arg(m_id);
        QTest::newRow("16 px icon") << QStringLiteral("share/icons/hicolor/16x16/apps/%1.svg").arg(m_id);
    }

    void everyFileIsInPlace()
    {
        QFETCH(QString, path);
        const QFileInfo file(installed(path));
        QVERIFY2(file.isFile() && file.size() > 0, qPrintable(file.filePath()));
        if (path.startsWith(QLatin1String("bin/")))
            QVERIFY(file.isExecutable());
        if (path.endsWith(QLatin1String(".svg"))) {
            QFile svg(file.filePath());
            QVERIFY(svg.open(QIODevice::ReadOnly));
            const QString text = QString::fromUtf8(svg.readAll());
            // Square, so shells neither crop nor stretch it.
            static const QRegularExpression size(QStringLiteral("<svg[^>]* width=\"(\\d+)\" height=\"(\\d+)\""));
            const auto match = size.match(text);
            QVERIFY(match.hasMatch());
            QCOMPARE(match.captured(1), match.captured(2));
            // A symbolic icon is recoloured by the theme: one colour only.
            if (path.contains(QLatin1String("symbolic"))) {
                static const QRegularExpression colour(QStringLiteral("#[0-9a-fA-F]{3,8}\\b"));
                QSet<QString> colours;
                for (const auto &found : colour.globalMatch(text))
                    colours.insert(found.captured().toLower());
                QCOMPARE(colours.size(), 1);
            }
        }
    }

    // The shell finds the icon, the D-Bus activation and the software-centre
    // page all by the app's own id; the desktop file and the D-Bus service
    // start the binary that was installed.
    void filesNameTheAppAndItsBinary()
    {
        const auto desktop = readGroup(installed(QStringLiteral("share/applications/%1.desktop").arg(m_id)), QStringLiteral("Desktop Entry"));
        const auto service = readGroup(installed(QStringLiteral("share/dbus-1/services/%1.service").arg(m_id)), QStringLiteral("D-BUS Service"));
        const auto meta = readXmlTexts(installed(QStringLiteral("share/metainfo/%1.metainfo.xml").arg(m_id)));
        QVERIFY(!meta.isEmpty());

        QCOMPARE(desktop.value(QStringLiteral("Icon")), m_id);
        QCOMPARE(desktop.value(QStringLiteral("DBusActivatable")), QStringLiteral("true"));
        QCOMPARE(service.value(QStringLiteral("Name")), m_id);
        QCOMPARE(meta.value(QStringLiteral("component/id")), m_id);
        QCOMPARE(meta.value(QStringLiteral("component/launchable")), m_id + QStringLiteral(".desktop"));
        QCOMPARE(meta.value(QStringLiteral("component/provides/dbus")), m_id);

        const QString binary = m_prefix + QStringLiteral("/bin/murvane");
        QCOMPARE(desktop.value(QStringLiteral("Exec")).section(QLatin1Char(' '), 0, 0), binary);
        QCOMPARE(service.value(QStringLiteral("Exec")).section(QLatin1Char(' '), 0, 0), binary);
        QVERIFY(QFileInfo(staged(binary)).isExecutable());
        QCOMPARE(meta.value(QStringLiteral("component/provides/binary")), QFileInfo(binary).fileName());

        const QStringList controls = meta.values(QStringLiteral("component/supports/control"));
        for (const char *control : {"touch", "keyboard"})
            QVERIFY2(controls.contains(QLatin1String(control)), control);
    }

    // "Rate Murvane!" opens the page the software centre builds from the
    // installed metadata.
    void writeReviewLinkOpensTheInstalledPage()
    {
        const auto meta = readXmlTexts(installed(QStringLiteral("share/metainfo/%1.metainfo.xml").arg(m_id)));
        const QString id = meta.value(QStringLiteral("component/id"));
        QVERIFY(!id.isEmpty());
        QCOMPARE(WriteReviewLink::current(), QUrl(QStringLiteral("appstream://") + id));
    }
};

QTEST_GUILESS_MAIN(TestInstalledFiles)
#include "tst_installedfiles.moc"
