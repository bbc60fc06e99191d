#include "platform/preferences/FilePreferencesStore.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

class TestPreferences : public QObject
{
    Q_OBJECT

private slots:
    void typedValuesSurviveAReopen()
    {
        QTemporaryDir dir;
        {
            FilePreferencesStore p(dir.path());
            p.setStringList(QStringLiteral("listNames"), {QStringLiteral("A✔"), QString(), QStringLiteral("Ü")});
            p.setData(QStringLiteral("items"), QByteArray("[[]]\xff\x00", 6));
            p.setInteger(QStringLiteral("selectedListIndex"), -3);
            p.setString(QStringLiteral("appColorScheme"), QStringLiteral("dark"));
        }
        FilePreferencesStore p(dir.path());
        QCOMPARE(p.stringList(QStringLiteral("listNames")),
                 QStringList({QStringLiteral("A✔"), QString(), QStringLiteral("Ü")}));
        QCOMPARE(p.data(QStringLiteral("items")), QByteArray("[[]]\xff\x00", 6));
        QCOMPARE(p.integer(QStringLiteral("selectedListIndex")), qint64(-3));
        QCOMPARE(p.string(QStringLiteral("appColorScheme")), QStringLiteral("dark"));
    }

    void absentIsNotEmptyAndWrongTypesReadAsAbsent()
    {
        QTemporaryDir dir;
        QFile f(dir.filePath(QStringLiteral("preferences.json")));
        QVERIFY(f.open(QIODevice::WriteOnly));
        // As a hand-edited file might have it.
        f.write(R"({"listNames":["a",1],"selectedListIndex":2.5,"selectedThemeKey":["x"],"appColorScheme":"dark"})");
        f.close();
        FilePreferencesStore p(dir.path());
        QVERIFY(!p.stringList(QStringLiteral("listNames")).has_value());
        QVERIFY(!p.integer(QStringLiteral("selectedListIndex")).has_value());
        QVERIFY(!p.string(QStringLiteral("selectedThemeKey")).has_value());
        QVERIFY(!p.integer(QStringLiteral("appColorScheme")).has_value());
        QCOMPARE(p.string(QStringLiteral("appColorScheme")), QStringLiteral("dark"));

        QVERIFY(!p.stringList(QStringLiteral("other")).has_value());
        p.setStringList(QStringLiteral("other"), {});
        QCOMPARE(p.stringList(QStringLiteral("other")), std::optional<QStringList>(QStringList()));
        p.setString(QStringLiteral("items"), QStringLiteral("[]"));
        QVERIFY(!p.data(QStringLiteral("items")).has_value());
    }

    void unreadableFileIsKeptAside()
    {
        QTemporaryDir dir;
        QFile f(dir.filePath(QStringLiteral("preferences.json")));
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write("{not json");
        f.close();
        FilePreferencesStore p(dir.path());
        QVERIFY(!p.contains(QStringLiteral("listNames")));
        p.setString(QStringLiteral("appColorScheme"), QStringLiteral("light"));
        QFile kept(dir.filePath(QStringLiteral("preferences.json.unreadable")));
        QVERIFY(kept.open(QIODevice::ReadOnly));
        QCOMPARE(kept.readAll(), QByteArray("{not json"));
    }

    void writesReplaceFilesWholeAndLeaveNoTemporaries()
    {
        QTemporaryDir dir;
        FilePreferencesStore p(dir.path());
        const QByteArray big(3 * 1024 * 1024, 'x');
        p.setData(QStringLiteral("items"), big);
        p.setData(QStringLiteral("items"), QByteArray("[]"));
        p.setStringList(QStringLiteral("listNames"), {QStringLiteral("a")});
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files), QStringList({"items.bin", "preferences.json"}));
        QCOMPARE(FilePreferencesStore(dir.path()).data(QStringLiteral("items")), QByteArray("[]"));

        // A key moving from one type to another leaves only the new value behind.
        p.setString(QStringLiteral("items"), QStringLiteral("s"));
        QVERIFY(!QFile::exists(dir.filePath(QStringLiteral("items.bin"))));
        p.remove(QStringLiteral("items"));
        QVERIFY(!FilePreferencesStore(dir.path()).contains(QStringLiteral("items")));
    }

    void keysThatCannotBeFileNamesAreRefused()
    {
        QTemporaryDir dir;
        FilePreferencesStore p(dir.path());
        p.setData(QStringLiteral("../escape"), QByteArray("x"));
        QVERIFY(!QFile::exists(dir.filePath(QStringLiteral("../escape.bin"))));
        QVERIFY(!p.data(QStringLiteral("../escape")).has_value());
    }
};

QTEST_GUILESS_MAIN(TestPreferences)
#include "tst_preferences.moc"
