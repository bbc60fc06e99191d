#pragma once

#include <QObject>
#include <QPointer>
#include <QtQml/qqml.h>

class QInputMethod;

// Publishes whether the on-screen keyboard is up. Every will-show/will-hide
// publishes, even when the value does not change, so observers can react to
// each notice.
class KeyboardResponder : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool isKeyboardShown READ isKeyboardShown NOTIFY isKeyboardShownChanged)

public:
    explicit KeyboardResponder(QObject *parent = nullptr);
    // Follows this input method's visibility; null for none (tests).
    void observe(QInputMethod *inputMethod);

    bool isKeyboardShown() const { return m_shown; }

public slots:
    void keyboardWillShow();
    void keyboardWillHide();

signals:
    void isKeyboardShownChanged();

private:
    bool m_shown = false;
    QPointer<QInputMethod> m_inputMethod;
    QMetaObject::Connection m_connection;
};
