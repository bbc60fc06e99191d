#pragma once

#include "ScreenContext.h"

#include <QObject>
#include <QUuid>
#include <QtQml/qqml.h>
#include <optional>

class ListNavigation;
struct ListItem;

// The input bar: the text being typed, adding it as an item or putting it
// back into the item being edited, and the bullet that flies on each add.
class InputBar : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Part of ScreenState")

    Q_PROPERTY(QString newItem READ newItem WRITE setNewItem NOTIFY newItemChanged)
    Q_PROPERTY(QString editingItemId READ editingItemId NOTIFY editingItemIdChanged) // "" = adding
    Q_PROPERTY(bool newItemFieldIsFocused READ newItemFieldIsFocused WRITE setNewItemFieldIsFocused NOTIFY newItemFieldIsFocusedChanged)
    Q_PROPERTY(bool showBullet READ showBullet NOTIFY bulletChanged)
    Q_PROPERTY(double bulletOffset READ bulletOffset NOTIFY bulletChanged)
    Q_PROPERTY(QString lastItemId READ lastItemId NOTIFY lastItemIdChanged)
    Q_PROPERTY(QString refreshID READ refreshID NOTIFY refreshIDChanged)

public:
    // Adds to and edits in the list `lists` shows.
    InputBar(const ScreenContext &context, ListNavigation &lists, QObject *parent = nullptr);

    QString newItem() const { return m_newItem; }
    void setNewItem(const QString &text);
    QString editingItemId() const { return ScreenContext::idText(m_editingItemId); }
    bool newItemFieldIsFocused() const { return m_focused; }
    void setNewItemFieldIsFocused(bool focused);
    bool showBullet() const { return m_showBullet; }
    double bulletOffset() const { return m_bulletOffset; }
    QString lastItemId() const { return ScreenContext::idText(m_lastItemId); }
    QString refreshID() const { return ScreenContext::idText(m_refreshId); }

    // Puts an item's text into the field to edit it there.
    void startEditing(const ListItem &item);
    // Whether losing the entry's focus for this reason means the user left
    // the field. A window going to the background, or a menu or pop-up
    // taking the keys for a while, does not: the draft stays.
    static bool focusLossEndsEditing(Qt::FocusReason reason);

public slots:
    // The return key: adds the trimmed text, or replaces the edited item's.
    void addOrUpdate();
    // However editing ends (focus lost, a list chosen), the field empties.
    void endEditing();
    // The entry gained or lost the keyboard focus (a Qt::FocusReason).
    void fieldFocusChanged(bool focused, int reason);

signals:
    void newItemChanged();
    void editingItemIdChanged();
    void newItemFieldIsFocusedChanged();
    void bulletChanged();
    void lastItemIdChanged();
    void refreshIDChanged();
    // Bring an item's row to the bottom of the visible list.
    void scrollToItem(const QString &itemId);

private:
    void setEditingItemId(const std::optional<QUuid> &id);
    void fireBullet();

    ScreenContext m_context;
    ListNavigation &m_lists;
    QString m_newItem;
    // None while adding. Not a null id: an item may have the all-zero id.
    std::optional<QUuid> m_editingItemId;
    bool m_focused = false;
    bool m_showBullet = false;
    double m_bulletOffset = 0;
    std::optional<QUuid> m_lastItemId;
    QUuid m_refreshId = QUuid::createUuid();
};
