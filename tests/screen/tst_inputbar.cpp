#include "ScreenRig.h"

#include <QSignalSpy>
#include <QTest>

class TestInputBar : public QObject
{
    Q_OBJECT

private slots:
    void addEditAndUpdate()
    {
        Screen s;
        QSignalSpy scrolls(&s.input(), &InputBar::scrollToItem);
        s.input().setNewItem(QStringLiteral(" \n\tMilk \n"));
        s.input().addOrUpdate();
        QCOMPARE(s.stored(), QStringList{"Milk"});
        const QString milk = s.input().lastItemId();
        QCOMPARE(milk, idText(s.items()[0].id));
        QCOMPARE(scrolls.size(), 1);
        QCOMPARE(scrolls[0][0].toString(), milk);
        QCOMPARE(s.input().newItem(), QString());
        // The bullet flies out at once and comes back a third of a second later.
        QVERIFY(s.input().showBullet());
        QCOMPARE(s.input().bulletOffset(), 300.0);
        QTest::qWait(200);
        QVERIFY(s.input().showBullet());
        QTRY_VERIFY_WITH_TIMEOUT(!s.input().showBullet(), 1000);
        QCOMPARE(s.input().bulletOffset(), 0.0);

        // Only white space adds nothing, but the bullet still flies.
        s.prefs.resetWriteLog();
        s.add(QStringLiteral("  \n \u00a0\t"));
        QCOMPARE(s.stored(), QStringList{"Milk"});
        QCOMPARE(s.prefs.writeCount(), 0);
        QVERIFY(s.input().showBullet());
        QTRY_VERIFY(!s.input().showBullet());

        const QString refresh = s.input().refreshID();
        s.rows().edit(milk);
        QCOMPARE(s.input().editingItemId(), milk);
        QCOMPARE(s.input().newItem(), QStringLiteral("Milk"));
        QVERIFY(s.input().newItemFieldIsFocused());
        s.input().setNewItem(QStringLiteral("  Oat milk\n"));
        s.input().addOrUpdate();
        QCOMPARE(s.stored(), QStringList{"Oat milk"});
        QCOMPARE(s.input().editingItemId(), QString());
        QCOMPARE(s.input().newItem(), QString());
        QVERIFY(!s.input().newItemFieldIsFocused());
        QVERIFY(s.input().refreshID() != refresh);
        QVERIFY(!s.input().showBullet()); // only an add flies it

        // An update to nothing keeps the text and still ends editing.
        s.rows().edit(milk);
        s.input().setNewItem(QStringLiteral("   "));
        s.input().addOrUpdate();
        QCOMPARE(s.stored(), QStringList{"Oat milk"});
        QCOMPARE(s.input().editingItemId(), QString());

        // The window going to the background or a menu taking the keys
        // keeps the edit; the user leaving the field ends it, so the next
        // submit adds.
        s.rows().edit(milk);
        s.input().setNewItem(QStringLiteral("Milk dr"));
        for (Qt::FocusReason kept : {Qt::ActiveWindowFocusReason, Qt::PopupFocusReason, Qt::MenuBarFocusReason}) {
            s.input().fieldFocusChanged(false, kept);
            QVERIFY(s.input().newItemFieldIsFocused());
            QCOMPARE(s.input().editingItemId(), milk);
            QCOMPARE(s.input().newItem(), QStringLiteral("Milk dr"));
        }
        s.input().fieldFocusChanged(false, Qt::MouseFocusReason);
        QVERIFY(!s.input().newItemFieldIsFocused());
        QCOMPARE(s.input().editingItemId(), QString());
        QCOMPARE(s.input().newItem(), QString());
        s.add("Eggs");
        QCOMPARE(s.stored(), (QStringList{"Oat milk", "Eggs"}));
    }
};

QTEST_MAIN(TestInputBar)
#include "tst_inputbar.moc"
