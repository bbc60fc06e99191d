#pragma once

#include "UndoAction.h"

#include <QList>
#include <optional>

class ListItems;

// Undo entries, newest last. Undo applies by list position, not identity:
// an entry applies to whatever list stands at its recorded position.
class UndoStack
{
public:
    struct Outcome
    {
        bool applied = false;
        // Set when the undo brought a list back: the screen selects it.
        std::optional<qint64> selectList;
    };

    void push(UndoAction action) { m_actions.append(std::move(action)); }
    bool isEmpty() const { return m_actions.isEmpty(); }
    qsizetype size() const { return m_actions.size(); }
    const QList<UndoAction> &actions() const { return m_actions; }

    // Pops the newest entry and applies it to the store. An entry that no
    // longer fits the store is dropped silently.
    Outcome undo(ListItems &store);

private:
    QList<UndoAction> m_actions;
};
