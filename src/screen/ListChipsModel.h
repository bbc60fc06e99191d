#pragma once

#include "model/ListItems.h"

#include <QAbstractListModel>
#include <QPointer>
#include <QtQml/qqml.h>

// The header row's chips: one row per list name, in list order. It follows
// the store and reports a rename as one row's data, a list moved one place
// as a moved row, and an added or deleted list as an inserted or removed
// row, so the strip keeps its chips (and the capsule can travel between
// them) instead of building them all again.
class ListChipsModel : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(ListItems *store READ store WRITE setStore NOTIFY storeChanged)

public:
    enum Role { NameRole = Qt::UserRole + 1 }; // "name"

    explicit ListChipsModel(QObject *parent = nullptr);

    ListItems *store() const { return m_store; }
    void setStore(ListItems *store);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

signals:
    void storeChanged();

private:
    // Brings the rows to `names` as the smallest change that explains it.
    void follow(const QStringList &names);

    QPointer<ListItems> m_store;
    QStringList m_names;
};
