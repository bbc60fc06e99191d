#include "platform/KeyboardResponder.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QSignalSpy>
#include <QTest>

class TestKeyboardResponder : public QObject
{
    Q_OBJECT

private slots:
    void sequences_data()
    {
        QTest::addColumn<QString>("notices"); // s = will show, h = will hide
        QTest::addColumn<bool>("shown");
        QTest::newRow("none") << "" << false;
        QTest::newRow("show") << "s" << true;
        QTest::newRow("show then hide") << "sh" << false;
        QTest::newRow("hide alone") << "h" << false;
        QTest::newRow("hide, show") << "hs" << true;
        QTest::newRow("show, hide, hide") << "shh" << false;
    }
    void sequences()
    {
        QFETCH(QString, notices);
        QFETCH(bool, shown);
        KeyboardResponder responder;
        responder.observe(nullptr);
        QSignalSpy spy(&responder, &KeyboardResponder::isKeyboardShownChanged);
        for (QChar notice : notices) {
            if (notice == QLatin1Char('s'))
                responder.keyboardWillShow();
            else
                responder.keyboardWillHide();
        }
        QCOMPARE(responder.isKeyboardShown(), shown);
        // Every notice publishes, changed or not.
        QCOMPARE(spy.count(), notices.size());
    }

    void followsTheInputMethod()
    {
        KeyboardResponder responder;
        responder.keyboardWillShow();
        QSignalSpy spy(&responder, &KeyboardResponder::isKeyboardShownChanged);
        // No on-screen keyboard here, so a visibility notice means hidden.
        emit QGuiApplication::inputMethod()->visibleChanged();
        QCOMPARE(spy.count(), 1);
        QCOMPARE(responder.isKeyboardShown(), QGuiApplication::inputMethod()->isVisible());

        // Once it stops observing, notices no longer reach it.
        responder.observe(nullptr);
        emit QGuiApplication::inputMethod()->visibleChanged();
        QCOMPARE(spy.count(), 1);
    }
};

QTEST_MAIN(TestKeyboardResponder)
#include "tst_keyboardresponder.moc"
