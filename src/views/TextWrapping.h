#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqml.h>

// How the item editor wraps its text. Wrapping at word boundaries takes
// time that grows with the square of the longest run without a break: a
// pasted megabyte without spaces would freeze the editor for minutes.
// Such a text wraps anywhere instead, which takes linear time; ordinary
// text keeps its words whole.
class TextWrapping : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    // Longer runs than this wrap anywhere (UTF-16 code units).
    static constexpr qsizetype maxUnbrokenRun = 2000;

    using QObject::QObject;

    // True when `text` holds a run of more than maxUnbrokenRun code units
    // without white space.
    static bool needsWrapAnywhere(const QString &text);
    Q_INVOKABLE bool wrapsAnywhere(const QString &text) const { return needsWrapAnywhere(text); }
};
