#pragma once

#include "ScreenContext.h"
#include "model/ListItems.h"

#include <QObject>
#include <QtQml/qqml.h>
#include <optional>

class InputBar;
class ListNavigation;
class SortAndUndo;

// What an item row does, by item id in the shown list: the done-marker,
// editing, pinning, deleting (one row or the list's delete gesture) and
// moving (drag and drop, or a place up or down). An id the list does not
// hold does nothing.
class RowActions : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of ScreenState")

public:
    RowActions(const ScreenContext &context, ListNavigation &lists, SortAndUndo &undo, InputBar &input,
               QObject *parent = nullptr);

    // Accumulated turn of an item's done-marker, in degrees (0 when never tapped).
    Q_INVOKABLE double rotationAngle(const QString &itemId) const;

public slots:
    // The marker turns another half turn on every tap; it never turns back.
    void turnDoneMarker(const QString &itemId);
    void toggleState(const QString &itemId);
    void edit(const QString &itemId);
    void togglePin(const QString &itemId);
    void deleteItem(const QString &itemId);
    // The list's delete gesture: displayed row offsets, walked ascending.
    void deleteDisplayedRows(const QList<int> &offsets);
    // Drag and drop: a displayed row dropped before displayed gap `destination`,
    // handed to the store's move as stored positions.
    void moveDisplayedRow(int from, int destination);
    // The row of `itemId` moved `by` places (up when negative) as that drop
    // would move it. False, and nothing moves, past the list's ends.
    bool moveRowBy(const QString &itemId, int by);

private:
    // The shown list's item with this id, by its first occurrence.
    std::optional<ListItems::Positioned> find(const QString &itemId) const;
    QList<ListItems::Positioned> displayOrder() const;

    ScreenContext m_context;
    ListNavigation &m_lists;
    SortAndUndo &m_undo;
    InputBar &m_input;
};
