#pragma once

#include "ScreenContext.h"

#include <QObject>
#include <QtQml/qqml.h>

class SortAndUndo;

// The lists: which one is shown, the navigation bar's moves, adding and
// deleting lists, renaming the shown one, and the header row's scroll.
class ListNavigation : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of ScreenState")

    // Persisted ("selectedListIndex").
    Q_PROPERTY(qint64 selectedListIndex READ selectedListIndex WRITE setSelectedListIndex NOTIFY selectedListIndexChanged)
    Q_PROPERTY(QString currentListName READ currentListName NOTIFY currentListNameChanged)
    Q_PROPERTY(bool canMoveListLeft READ canMoveListLeft NOTIFY selectionOrListsChanged)
    Q_PROPERTY(bool canMoveListRight READ canMoveListRight NOTIFY selectionOrListsChanged)
    Q_PROPERTY(bool isSelectedListEmpty READ isSelectedListEmpty NOTIFY isSelectedListEmptyChanged)
    Q_PROPERTY(bool showdefaultScreen READ showdefaultScreen NOTIFY showdefaultScreenChanged)
    Q_PROPERTY(bool showDeletionConfirmation READ showDeletionConfirmation WRITE setShowDeletionConfirmation NOTIFY showDeletionConfirmationChanged)
    Q_PROPERTY(bool titleEdited READ titleEdited NOTIFY titleEditedChanged)
    // How long the header's capsule takes to reach a newly selected chip, in
    // ms (ease-in-out): a chip tap and a list move animate, other changes
    // jump (0). Set before selectedListIndexChanged is emitted.
    Q_PROPERTY(int selectionDuration READ selectionDuration NOTIFY selectionDurationChanged)

public:
    // Starts on the stored selection; takes undo entries to `undo`, and
    // shows the lists its undos bring back.
    ListNavigation(const ScreenContext &context, SortAndUndo &undo, QObject *parent = nullptr);

    qint64 selectedListIndex() const { return m_selected; }
    void setSelectedListIndex(qint64 index);
    QString currentListName() const;
    bool canMoveListLeft() const;
    bool canMoveListRight() const;
    bool isSelectedListEmpty() const { return m_selectedEmpty; }
    bool showdefaultScreen() const { return m_showDefaultScreen; }
    bool showDeletionConfirmation() const { return m_showDeletionConfirmation; }
    void setShowDeletionConfirmation(bool show);
    bool titleEdited() const { return m_titleEdited; }
    int selectionDuration() const { return m_selectionDuration; }

    bool isValidSelection() const;
    // An empty list shows the default screen again.
    void showDefaultScreenIfEmpty();

    // Title font size in points for a list name, by user-perceived characters.
    Q_INVOKABLE static int titlePointSize(const QString &title);

public slots:
    // Start-up: the stored selection, clamped, and the header at once.
    void appear();
    void moveListLeft();
    void moveListRight();
    void askToDeleteList(); // the minus button
    void deleteSelectedList(); // "Yes"
    void addList();
    void chooseList(qint64 index); // a chip tap
    void renameSelectedList(const QString &name);
    void setTitleEditing(bool editing);

signals:
    void selectedListIndexChanged();
    void currentListNameChanged();
    void selectionOrListsChanged();
    void isSelectedListEmptyChanged();
    void showdefaultScreenChanged();
    void showDeletionConfirmationChanged();
    void titleEditedChanged();
    void selectionDurationChanged();
    // A chip was tapped.
    void listChosen();
    // Centre the selected chip in the header row over `durationMs`
    // (ease-in-out; a later request replaces a running one; 0 = jump, as on
    // appearing). Every change of the selection asks for 200 ms; flows that
    // need another pace ask again right after.
    void scrollHeaderToSelected(int durationMs);

private:
    void moveList(int step);
    void selectClamped(qint64 index);
    // Selects `index` with the capsule taking `durationMs` to get there.
    void selectPaced(qint64 index, int durationMs);
    void setSelectionDuration(int durationMs);
    void updateEmpty();

    ScreenContext m_context;
    SortAndUndo &m_undo;
    qint64 m_selected = 0;
    bool m_selectedEmpty = true;
    bool m_showDefaultScreen = true;
    bool m_showDeletionConfirmation = false;
    bool m_titleEdited = false;
    int m_selectionDuration = 0;
};
