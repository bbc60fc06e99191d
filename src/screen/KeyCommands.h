#pragma once

#include <QKeySequence>
#include <QObject>
#include <QVariantList>
#include <QtQml/qqml.h>

class ScreenState;

// The screen's keyboard: which key means what, and doing it. Window-wide
// keys become shortcuts, so a focused text field that takes a key itself
// (Ctrl+Z, Space, Delete...) keeps it; the focused row's keys are asked for
// by the row.
class KeyCommands : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of ScreenState")

    // [{sequence, command}] for the window-wide keys.
    Q_PROPERTY(QVariantList windowKeys READ windowKeys CONSTANT)

public:
    enum Command {
        NoCommand,
        FocusInput,
        NewList,
        PreviousList,
        NextList,
        MoveListLeft,
        MoveListRight,
        RenameList, // the view puts the focus in the title
        Undo,
        ShowTutorial,
        ToggleDone,
        EditItem,
        DeleteItem,
        PinItem,
        MoveItemUp,
        MoveItemDown,
    };
    Q_ENUM(Command)

    struct Binding
    {
        QKeySequence keys;
        Command command;
    };

    KeyCommands(ScreenState &screen, QObject *parent = nullptr);

    static const QList<Binding> &windowBindings();
    // What a key pressed on a focused row means.
    static Command rowCommand(int key, Qt::KeyboardModifiers modifiers);

    QVariantList windowKeys() const;

public slots:
    // Does `command`, on the row of `itemId` for a row's command. False
    // when the view has to carry it out (it moves focus only) or there is
    // nothing to do it on.
    bool perform(int command, const QString &itemId = {});
    // A key on the focused row: true when it meant something and was done.
    bool rowKey(int key, int modifiers, const QString &itemId);

private:
    ScreenState &m_screen;
};
