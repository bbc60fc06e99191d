#pragma once

#include <QObject>
#include <QString>

// What the user must hear about the store: changes that are not reaching
// the disk, and stored data that could not be read (with where its copy
// is). The screen shows `message` while it is not empty.
class StoreStatus : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString message READ message NOTIFY messageChanged)
    Q_PROPERTY(bool saveFailing READ saveFailing NOTIFY messageChanged)
    Q_PROPERTY(bool dismissable READ dismissable NOTIFY messageChanged)

public:
    using QObject::QObject;

    QString message() const;
    bool saveFailing() const { return !m_saveError.isEmpty(); }
    // Only the notice about recovered data can be put away; a failing save
    // stays up until a save succeeds.
    bool dismissable() const { return !saveFailing() && !m_recoveredAt.isEmpty(); }
    Q_INVOKABLE void dismiss();

    // Empty once saving works again.
    void setSaveError(const QString &error);
    void noteRecovered(const QString &where);

signals:
    void messageChanged();

private:
    QString m_saveError;
    QString m_recoveredAt;
};
