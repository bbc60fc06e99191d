#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqml.h>

// What screen readers are told where the screen shows a state rather than
// a word: a row's state, the pin action that undoes a pin, a list without
// a name.
class AccessibleText : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    // "to do" or "done", then ", pinned" for a pinned item.
    Q_INVOKABLE static QString rowState(bool isDone, bool isPinned);
    // The leading swipe action: "Pin", or "Unpin" for a pinned item.
    Q_INVOKABLE static QString pinAction(bool isPinned);
    // A list's name, or "Unnamed List" for a name that is empty or blank.
    Q_INVOKABLE static QString listName(const QString &name);
};
