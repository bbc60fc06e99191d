#include "RecordingShareSheet.h"
#include "model/ListItem.h"
#include "views/ShareText.h"

#include <QTest>

class TestSharing : public QObject
{
    Q_OBJECT

private slots:
    void shareText_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<ItemList>("items");
        QTest::addColumn<QByteArray>("utf8");
        // Pinned items keep their stored place and get no mark; item text
        // goes out verbatim, line breaks and all.
        QTest::newRow("items") << "Home"
                               << ItemList{{{}, "Milk"}, {{}, "one\ntwo", ListItemState::done}, {{}, "p", {}, true}}
                               << QByteArray("Home\n____\n\n\xe2\x80\xa2 Milk \n\xe2\x80\xa2 one\ntwo \xe2\x9c\x93\n"
                                             "\xe2\x80\xa2 p ");
        QTest::newRow("empty list") << "Home" << ItemList{} << QByteArray("Home\n____\n");
        // The underline counts what a reader sees as characters.
        QTest::newRow("emoji name") << QStringLiteral("Gift Ideas\U0001F381") << ItemList{}
                                    << (QStringLiteral("Gift Ideas\U0001F381").toUtf8() + "\n___________\n");
        QTest::newRow("emoji with selector") << QStringLiteral("Trip\u2708\uFE0F") << ItemList{}
                                             << (QStringLiteral("Trip\u2708\uFE0F").toUtf8() + "\n_____\n");
        QTest::newRow("combining mark") << QStringLiteral("Cafe\u0301") << ItemList{}
                                        << (QStringLiteral("Cafe\u0301").toUtf8() + "\n____\n");
    }
    void shareText()
    {
        QFETCH(QString, name);
        QFETCH(ItemList, items);
        QFETCH(QByteArray, utf8);
        QCOMPARE(ShareText::format(name, items).toUtf8(), utf8);
    }

    // The sheet shows on the next turn; copy closes it, and a closed sheet
    // copies nothing; email hands over the text as an escaped body.
    void sheetPresentsOnTheNextTurnAndClosesOnAnyChoice()
    {
        RecordingShareSheet sheet;
        sheet.present(QStringLiteral("Home"));
        QVERIFY(!sheet.isPresented());
        QTRY_VERIFY(sheet.isPresented());
        sheet.copyText();
        sheet.copyText();
        QCOMPARE(sheet.copied, QStringList{"Home"});
        QVERIFY(!sheet.isPresented());

        sheet.present(QStringLiteral("A&B + C=?\n\u2022 Milk #1 "));
        QTRY_VERIFY(sheet.isPresented());
        sheet.emailText();
        QCOMPARE(sheet.opened.value(0).toEncoded(),
                 QByteArray("mailto:?body=A%26B%20%2B%20C%3D%3F%0D%0A%E2%80%A2%20Milk%20%231%20"));
        QVERIFY(!sheet.isPresented());
    }
};

QTEST_MAIN(TestSharing)
#include "tst_sharing.moc"
