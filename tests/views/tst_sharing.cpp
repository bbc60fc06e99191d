#include "RecordingShareSheet.h"
#include "model/ListItem.h"
#include "views/ShareText.h"

#include <QTest>

namespace {

ListItem item(const QString &text, ListItemState state = ListItemState::toDo, bool pinned = false)
{
    ListItem i = ListItem::create(text);
    i.state = state;
    i.isPinned = pinned;
    return i;
}

} // namespace

class TestSharing : public QObject
{
    Q_OBJECT

private slots:
    void shareText_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<ItemList>("items");
        QTest::addColumn<QByteArray>("utf8");
        QTest::newRow("Home") << "Home" << ItemList{item("Milk"), item("Bread", ListItemState::done)}
                              << QByteArray("Home\n____\n\n\xe2\x80\xa2 Milk \n\xe2\x80\xa2 Bread \xe2\x9c\x93");
        QTest::newRow("empty list") << "Home" << ItemList{} << QByteArray("Home\n____\n");
        QTest::newRow("empty name") << "" << ItemList{item("a")} << QByteArray("\n\n\n\xe2\x80\xa2 a ");
        // Pinned items keep their stored place and get no mark.
        QTest::newRow("pinned") << "L" << ItemList{item("x"), item("p", ListItemState::toDo, true)}
                                << QByteArray("L\n_\n\n\xe2\x80\xa2 x \n\xe2\x80\xa2 p ");
        // The underline counts what a reader sees as characters.
        QTest::newRow("emoji name") << QStringLiteral("Gift Ideas\U0001F381") << ItemList{}
                                    << (QStringLiteral("Gift Ideas\U0001F381").toUtf8() + "\n___________\n");
        QTest::newRow("emoji with selector") << QStringLiteral("Trip\u2708\uFE0F") << ItemList{}
                                             << (QStringLiteral("Trip\u2708\uFE0F").toUtf8() + "\n_____\n");
        QTest::newRow("combining mark") << QStringLiteral("Cafe\u0301") << ItemList{}
                                        << (QStringLiteral("Cafe\u0301").toUtf8() + "\n____\n");
        // Item text goes out verbatim, line breaks and all.
        QTest::newRow("multi-line item") << "N" << ItemList{item("one\ntwo", ListItemState::done)}
                                         << QByteArray("N\n_\n\n\xe2\x80\xa2 one\ntwo \xe2\x9c\x93");
    }
    void shareText()
    {
        QFETCH(QString, name);
        QFETCH(ItemList, items);
        QFETCH(QByteArray, utf8);
        QCOMPARE(ShareText::format(name, items).toUtf8(), utf8);
    }

    void mailtoCarriesTheTextAsBody()
    {
        const QUrl url = ShareSheet::mailtoUrl(QStringLiteral("A&B + C=?\n\u2022 Milk #1 "));
        QCOMPARE(url.toEncoded(),
                 QByteArray("mailto:?body=A%26B%20%2B%20C%3D%3F%0D%0A%E2%80%A2%20Milk%20%231%20"));
    }

    void sheetPresentsOnTheNextTurnAndClosesOnAnyChoice()
    {
        RecordingShareSheet sheet;
        sheet.present(QStringLiteral("Home\n____\n"));
        QVERIFY(!sheet.isPresented());
        QTRY_VERIFY(sheet.isPresented());
        QCOMPARE(sheet.text(), QStringLiteral("Home\n____\n"));
        sheet.copyText();
        QCOMPARE(sheet.copied, QStringList{"Home\n____\n"});
        QVERIFY(!sheet.isPresented());
        sheet.copyText(); // closed: nothing more
        QCOMPARE(sheet.copied.size(), 1);

        sheet.present(QStringLiteral("x"));
        QTRY_VERIFY(sheet.isPresented());
        sheet.emailText();
        QCOMPARE(sheet.opened, QList<QUrl>{ShareSheet::mailtoUrl(QStringLiteral("x"))});
        QVERIFY(!sheet.isPresented());
    }
};

QTEST_MAIN(TestSharing)
#include "tst_sharing.moc"
