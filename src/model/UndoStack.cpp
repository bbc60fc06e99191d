#include "UndoStack.h"

#include "ListItems.h"

namespace {
template<class... Ts>
struct Overloaded : Ts...
{
    using Ts::operator()...;
};
template<class... Ts>
Overloaded(Ts...) -> Overloaded<Ts...>;
} // namespace

UndoStack::Outcome UndoStack::undo(ListItems &store)
{
    if (m_actions.isEmpty())
        return {};
    const UndoAction action = m_actions.takeLast();

    return std::visit(
        Overloaded{
            [&](const UndoActions::DeleteItem &a) -> Outcome {
                if (a.listIndex < 0 || a.listIndex >= store.items().size() || a.index < 0
                    || a.index > store.items()[a.listIndex].size())
                    return {};
                const bool fits = a.listIndex < store.listNames().size();
                store.insertItem(a.item, a.index, a.listIndex);
                return {fits, std::nullopt};
            },
            [&](const UndoActions::DeleteList &a) -> Outcome {
                if (!store.restoreList(a.index, a.listName, a.items))
                    return {};
                return {true, a.index};
            },
            [&](const UndoActions::SortList &a) -> Outcome {
                return {store.replaceList(a.listIndex, a.oldState), std::nullopt};
            },
            [&](const UndoActions::MarkAll &a) -> Outcome {
                return {store.replaceList(a.listIndex, a.oldState), std::nullopt};
            },
        },
        action);
}
