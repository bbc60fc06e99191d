#include "platform/KeyboardResponder.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QSignalSpy>
#include <QTest>

class TestKeyboardResponder : public QObject
{
    Q_OBJECT

private slots:
    void followsTheInputMethodAndPublishesEveryNotice()
    {
        KeyboardResponder responder;
        QSignalSpy spy(&responder, &KeyboardResponder::isKeyboardShownChanged);
        // Every notice publishes, changed or not.
        responder.keyboardWillShow();
        responder.keyboardWillShow();
        QVERIFY(responder.isKeyboardShown());
        QCOMPARE(spy.count(), 2);
        // No on-screen keyboard here, so a visibility notice means hidden.
        emit QGuiApplication::inputMethod()->visibleChanged();
        QCOMPARE(spy.count(), 3);
        QVERIFY(!responder.isKeyboardShown());

        // Once it stops observing, notices no longer reach it.
        responder.observe(nullptr);
        emit QGuiApplication::inputMethod()->visibleChanged();
        QCOMPARE(spy.count(), 3);
    }
};

QTEST_MAIN(TestKeyboardResponder)
#include "tst_keyboardresponder.moc"
