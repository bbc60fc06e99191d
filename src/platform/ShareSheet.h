#pragma once

#include <QObject>
#include <QString>
#include <QUrl>
#include <QtQml/qqml.h>

// The share sheet a list's text goes to. The screen asks it to present a
// text; a view (ShareSheetView.qml) shows it while `isPresented` holds and
// offers the ways out. Subclasses supply the two ways that reach the system:
// the clipboard and the mail composer.
class ShareSheet : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Provided by ScreenState")
    Q_PROPERTY(bool isPresented READ isPresented NOTIFY isPresentedChanged)
    Q_PROPERTY(QString text READ text NOTIFY textChanged)

public:
    explicit ShareSheet(QObject *parent = nullptr);
    ~ShareSheet() override;

    bool isPresented() const { return m_presented; }
    QString text() const { return m_text; }

    // Shows `text` on the next turn of the event loop, so the tap that asked
    // for it has finished before the sheet comes up. A sheet already shown
    // takes the new text.
    void present(const QString &text);

    // A mail draft whose body is `body` (line breaks sent as CRLF).
    static QUrl mailtoUrl(const QString &body);

public slots:
    void copyText();  // "Copy": to the clipboard, then close
    void emailText(); // "Email": open a mail draft, then close
    void dismiss();   // "Cancel"

protected:
    virtual void copyToClipboard(const QString &text) = 0;
    virtual void openUrl(const QUrl &url) = 0;

signals:
    void isPresentedChanged();
    void textChanged();

private:
    void show(const QString &text);

    bool m_presented = false;
    QString m_text;
};
