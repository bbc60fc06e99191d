#include "views/TextWrapping.h"

#include <QTest>

class TestTextWrapping : public QObject
{
    Q_OBJECT

private slots:
    void longUnbrokenRunsWrapAnywhere_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("anywhere");

        const qsizetype max = TextWrapping::maxUnbrokenRun;
        const QString run = QString(max, QLatin1Char('w'));
        QTest::newRow("empty") << QString() << false;
        QTest::newRow("a run at the bound") << run << false;
        QTest::newRow("one past it") << run + "w" << true;
        QTest::newRow("runs broken by spaces") << (run + " ").repeated(50) << false;
        QTest::newRow("broken by a line break") << run + "\n" + run << false;
        QTest::newRow("a long run after prose") << QStringLiteral("a b ").repeated(100) + run + "w" << true;
        QTest::newRow("a megabyte without a break") << QString(1 << 20, QLatin1Char('w')) << true;
    }

    void longUnbrokenRunsWrapAnywhere()
    {
        QFETCH(QString, text);
        QFETCH(bool, anywhere);
        QCOMPARE(TextWrapping::needsWrapAnywhere(text), anywhere);
    }
};

QTEST_APPLESS_MAIN(TestTextWrapping)
#include "tst_textwrapping.moc"
