#include "ListChipsModel.h"

ListChipsModel::ListChipsModel(QObject *parent)
    : QAbstractListModel(parent)
{
}

void ListChipsModel::setStore(ListItems *store)
{
    if (store == m_store)
        return;
    if (m_store)
        disconnect(m_store, nullptr, this, nullptr);
    beginResetModel();
    m_store = store;
    m_names = store ? store->listNames() : QStringList();
    endResetModel();
    if (store)
        connect(store, &ListItems::listNamesChanged, this, [this] { follow(m_store->listNames()); });
    emit storeChanged();
}

int ListChipsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_names.size());
}

QVariant ListChipsModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    if (role == NameRole || role == Qt::DisplayRole)
        return m_names.at(index.row());
    return {};
}

QHash<int, QByteArray> ListChipsModel::roleNames() const
{
    return {{NameRole, QByteArrayLiteral("name")}};
}

void ListChipsModel::follow(const QStringList &names)
{
    if (names == m_names)
        return;
    const qsizetype was = m_names.size();
    const qsizetype now = names.size();
    qsizetype head = 0;
    while (head < was && head < now && m_names[head] == names[head])
        ++head;
    qsizetype tail = 0;
    while (tail < was - head && tail < now - head && m_names[was - 1 - tail] == names[now - 1 - tail])
        ++tail;
    // m_names[head, was - tail) became names[head, now - tail).
    const int first = int(head);
    const int gone = int(was - head - tail);
    const int came = int(now - head - tail);
    if (gone == 0) {
        beginInsertRows({}, first, first + came - 1);
        m_names = names;
        endInsertRows();
    } else if (came == 0) {
        beginRemoveRows({}, first, first + gone - 1);
        m_names = names;
        endRemoveRows();
    } else if (gone == came) {
        const int last = first + gone - 1;
        const bool movedForward = gone > 1 && m_names[first] == names[last]
                                  && m_names.mid(first + 1, gone - 1) == names.mid(first, gone - 1);
        const bool movedBack = gone > 1 && m_names[last] == names[first]
                               && m_names.mid(first, gone - 1) == names.mid(first + 1, gone - 1);
        if (movedForward || movedBack) {
            const int from = movedForward ? first : last;
            beginMoveRows({}, from, from, {}, movedForward ? last + 1 : first);
            m_names = names;
            endMoveRows();
        } else {
            m_names = names;
            emit dataChanged(index(first), index(last), {NameRole});
        }
    } else {
        beginResetModel();
        m_names = names;
        endResetModel();
    }
}
