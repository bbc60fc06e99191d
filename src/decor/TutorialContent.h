#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QVariantList>
#include <QtQml/qqml.h>

// The built-in help texts: the welcome title, the intro line and fifteen
// sections, each an icon identifier, a heading and a text. The texts are
// fixed English strings, straight and typographic quotes as written.
class TutorialContent : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(QString navigationTitle READ navigationTitle CONSTANT)
    Q_PROPERTY(QString doneLabel READ doneLabel CONSTANT)
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QString intro READ intro CONSTANT)
    // [{icon, heading, text}, ...] in display order.
    Q_PROPERTY(QVariantList sections READ sectionList CONSTANT)

public:
    struct Section
    {
        QString icon;
        QString heading;
        QString text;
    };

    explicit TutorialContent(QObject *parent = nullptr);

    static QString navigationTitle();
    static QString doneLabel();
    static QString title();
    static QString intro();
    static const QList<Section> &sections();
    static QVariantList sectionList();
};
