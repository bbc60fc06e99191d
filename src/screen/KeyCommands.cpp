#include "KeyCommands.h"

#include "InputBar.h"
#include "ListNavigation.h"
#include "RowActions.h"
#include "ScreenState.h"
#include "SortAndUndo.h"
#include "model/ListItems.h"

KeyCommands::KeyCommands(ScreenState &screen, QObject *parent)
    : QObject(parent)
    , m_screen(screen)
{
}

const QList<KeyCommands::Binding> &KeyCommands::windowBindings()
{
    static const QList<Binding> bindings = {
        {QKeySequence(Qt::CTRL | Qt::Key_N), FocusInput},
        {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_N), NewList},
        {QKeySequence(Qt::CTRL | Qt::Key_PageUp), PreviousList},
        {QKeySequence(Qt::CTRL | Qt::Key_PageDown), NextList},
        {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_PageUp), MoveListLeft},
        {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_PageDown), MoveListRight},
        {QKeySequence(Qt::Key_F2), RenameList},
        {QKeySequence(Qt::CTRL | Qt::Key_Z), Undo},
        {QKeySequence(Qt::Key_F1), ShowTutorial},
    };
    return bindings;
}

KeyCommands::Command KeyCommands::rowCommand(int key, Qt::KeyboardModifiers modifiers)
{
    // The keypad's flag says where a key is, not what it means.
    const Qt::KeyboardModifiers held = modifiers & ~Qt::KeypadModifier;
    if (held == Qt::NoModifier) {
        switch (key) {
        case Qt::Key_Space:
            return ToggleDone;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return EditItem;
        case Qt::Key_Delete:
            return DeleteItem;
        default:
            return NoCommand;
        }
    }
    if (held == Qt::AltModifier && (key == Qt::Key_Up || key == Qt::Key_Down))
        return key == Qt::Key_Up ? MoveItemUp : MoveItemDown;
    return held == Qt::ControlModifier && key == Qt::Key_P ? PinItem : NoCommand;
}

QVariantList KeyCommands::windowKeys() const
{
    QVariantList keys;
    for (const Binding &binding : windowBindings())
        keys.append(QVariantMap{{QStringLiteral("sequence"), binding.keys.toString(QKeySequence::PortableText)},
                                {QStringLiteral("command"), int(binding.command)}});
    return keys;
}

bool KeyCommands::perform(int command, const QString &itemId)
{
    ListNavigation &lists = *m_screen.lists();
    RowActions &rows = *m_screen.rows();
    const qint64 selected = lists.selectedListIndex();
    const qint64 listCount = m_screen.store()->listCount();
    switch (Command(command)) {
    case FocusInput:
        m_screen.inputBar()->setNewItemFieldIsFocused(true);
        return true;
    case NewList:
        lists.addList();
        return true;
    case PreviousList:
    case NextList: {
        const qint64 next = selected + (command == NextList ? 1 : -1);
        if (next < 0 || next >= listCount)
            return false;
        lists.chooseList(next);
        return true;
    }
    case MoveListLeft:
        if (!lists.canMoveListLeft())
            return false;
        lists.moveListLeft();
        return true;
    case MoveListRight:
        if (!lists.canMoveListRight())
            return false;
        lists.moveListRight();
        return true;
    case Undo:
        m_screen.sortAndUndo()->undo();
        return true;
    case ShowTutorial:
        m_screen.openTutorial();
        return true;
    case ToggleDone:
    case EditItem:
    case DeleteItem:
    case PinItem:
    case MoveItemUp:
    case MoveItemDown:
        break;
    case RenameList:
    case NoCommand:
        return false;
    }
    // A row's command, as its tap or swipe would do it.
    if (itemId.isEmpty())
        return false;
    switch (Command(command)) {
    case ToggleDone:
        rows.turnDoneMarker(itemId);
        rows.toggleState(itemId);
        break;
    case EditItem:
        rows.edit(itemId);
        break;
    case DeleteItem:
        rows.deleteItem(itemId);
        break;
    case MoveItemUp:
    case MoveItemDown:
        // As a drop would; the view's row follows its item.
        return rows.moveRowBy(itemId, command == MoveItemUp ? -1 : 1);
    default:
        rows.togglePin(itemId);
        break;
    }
    return true;
}

bool KeyCommands::rowKey(int key, int modifiers, const QString &itemId)
{
    const Command command = rowCommand(key, Qt::KeyboardModifiers(modifiers));
    return command != NoCommand && perform(command, itemId);
}
