#pragma once

#include "ScreenContext.h"
#include "model/UndoStack.h"

#include <QObject>
#include <QtQml/qqml.h>
#include <functional>

// The toolbar's sorts and "mark all to do", and the undo of every change
// that can be undone. The sorts share one direction, which flips after
// each; every change pushes its undo entry here.
class SortAndUndo : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of ScreenState")

    Q_PROPERTY(bool isAscending READ isAscending NOTIFY isAscendingChanged)
    Q_PROPERTY(bool canUndo READ canUndo NOTIFY undoStackChanged)
    // True while "Reset Dots" changes the states: the rows animate those
    // changes (the default animation) and show other state changes at once.
    Q_PROPERTY(bool markingAll READ markingAll NOTIFY markingAllChanged)

public:
    using SelectedList = std::function<qint64()>;

    SortAndUndo(const ScreenContext &context, SelectedList selectedList, QObject *parent = nullptr);

    bool isAscending() const { return m_ascending; }
    bool canUndo() const { return !m_undo.isEmpty(); }
    bool markingAll() const { return m_markingAll; }
    const UndoStack &undoStack() const { return m_undo; }

    // Keeps an entry for a change about to be made.
    void record(UndoAction action);

public slots:
    void sortByStatus();
    void sortByText();
    void markAllToDo();
    // Takes back the last change; a no-op with nothing to undo.
    void undo();

signals:
    void isAscendingChanged();
    void undoStackChanged();
    void markingAllChanged();
    // An undo brought back a list that should be shown; emitted while the
    // rows are held, so the selection moves in the same step.
    void listRestored(qint64 listIndex);

private:
    void sort(bool byText);

    ScreenContext m_context;
    SelectedList m_selectedList;
    UndoStack m_undo;
    bool m_ascending = true;
    bool m_markingAll = false;
};
