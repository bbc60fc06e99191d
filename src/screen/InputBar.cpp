#include "InputBar.h"

#include "ListNavigation.h"
#include "model/ListItems.h"
#include "platform/Haptics.h"

#include <QTimer>

namespace {

// The bullet flies out 300 points and comes back 0.35 s later.
constexpr double kBulletFlight = 300;
constexpr int kBulletReturnDelay = 350;

} // namespace

InputBar::InputBar(const ScreenContext &context, ListNavigation &lists, QObject *parent)
    : QObject(parent)
    , m_context(context)
    , m_lists(lists)
{
}

void InputBar::setNewItem(const QString &text)
{
    if (text == m_newItem)
        return;
    m_newItem = text;
    emit newItemChanged();
}

void InputBar::setNewItemFieldIsFocused(bool focused)
{
    if (focused == m_focused)
        return;
    m_focused = focused;
    emit newItemFieldIsFocusedChanged();
    // The screen taking the focus away ends editing.
    if (!focused)
        endEditing();
}

bool InputBar::focusLossEndsEditing(Qt::FocusReason reason)
{
    switch (reason) {
    case Qt::ActiveWindowFocusReason:
    case Qt::PopupFocusReason:
    case Qt::MenuBarFocusReason:
        return false;
    default:
        return true;
    }
}

void InputBar::fieldFocusChanged(bool focused, int reason)
{
    if (focused || focusLossEndsEditing(Qt::FocusReason(reason)))
        setNewItemFieldIsFocused(focused);
}

void InputBar::setEditingItemId(const std::optional<QUuid> &id)
{
    if (id == m_editingItemId)
        return;
    m_editingItemId = id;
    emit editingItemIdChanged();
}

void InputBar::startEditing(const ListItem &item)
{
    setEditingItemId(item.id);
    setNewItem(item.text);
    setNewItemFieldIsFocused(true);
}

void InputBar::addOrUpdate()
{
    m_context.haptics.lightImpact();
    const QString text = m_newItem.trimmed();
    const qint64 list = m_lists.selectedListIndex();
    if (!m_editingItemId) {
        if (!text.isEmpty()) {
            const ListItem item = ListItem::create(text);
            m_context.store.addItem(item, list);
            m_lastItemId = item.id;
            emit lastItemIdChanged();
            emit scrollToItem(ScreenContext::idText(item.id));
            setNewItem(QString());
        }
        // The bullet flies even when nothing was added.
        fireBullet();
    } else if (!text.isEmpty()) {
        m_context.store.updateItemText(*m_editingItemId, list, text);
        setNewItem(QString());
        setEditingItemId(std::nullopt);
        setNewItemFieldIsFocused(false);
        m_refreshId = QUuid::createUuid();
        emit refreshIDChanged();
    }
    setEditingItemId(std::nullopt);
    setNewItem(QString());
}

void InputBar::fireBullet()
{
    m_showBullet = true;
    m_bulletOffset = kBulletFlight;
    emit bulletChanged();
    QTimer::singleShot(kBulletReturnDelay, this, [this] {
        m_showBullet = false;
        m_bulletOffset = 0;
        emit bulletChanged();
    });
}

void InputBar::endEditing()
{
    m_lists.showDefaultScreenIfEmpty();
    setNewItem(QString());
    setEditingItemId(std::nullopt);
}
