#include "KeyboardResponder.h"

#include <QGuiApplication>
#include <QInputMethod>

KeyboardResponder::KeyboardResponder(QObject *parent)
    : QObject(parent)
{
    if (qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        observe(QGuiApplication::inputMethod());
}

void KeyboardResponder::observe(QInputMethod *inputMethod)
{
    // The connection is owned by this object and ends with it.
    QObject::disconnect(m_connection);
    m_inputMethod = inputMethod;
    if (!inputMethod)
        return;
    m_connection = connect(inputMethod, &QInputMethod::visibleChanged, this, [this] {
        if (m_inputMethod && m_inputMethod->isVisible())
            keyboardWillShow();
        else
            keyboardWillHide();
    });
}

void KeyboardResponder::keyboardWillShow()
{
    m_shown = true;
    emit isKeyboardShownChanged();
}

void KeyboardResponder::keyboardWillHide()
{
    m_shown = false;
    emit isKeyboardShownChanged();
}
