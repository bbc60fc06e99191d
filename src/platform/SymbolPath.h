#pragma once

#include <QColor>
#include <QPainterPath>
#include <QQuickPaintedItem>
#include <QtQml/qqml.h>

// A drawn icon: SVG path data in a 24 x 24 box, filled with the non-zero
// rule, the box scaled to `em` and centred in the item; or a glyph of the
// icon font, placed in the box as SymbolIcon's text places it. Turned
// glyphs come here, since turned text would need a text pipeline of its
// own, and bold ones, since the icon font has one weight. Painted with
// QPainter's smoothed edges into a texture, so it needs no multisampled
// layer and no pipeline of its own.
class SymbolPath : public QQuickPaintedItem
{
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QString path READ path WRITE setPath NOTIFY pathChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
    Q_PROPERTY(qreal em READ em WRITE setEm NOTIFY emChanged)
    // Drawn instead of the path data when not empty.
    Q_PROPERTY(QString glyph READ glyph WRITE setGlyph NOTIFY glyphChanged)
    // Heavier: the outline is also stroked, a pixel and a half wide.
    Q_PROPERTY(bool bold READ bold WRITE setBold NOTIFY boldChanged)

public:
    explicit SymbolPath(QQuickItem *parent = nullptr);

    QString path() const { return m_data; }
    void setPath(const QString &data);
    QColor color() const { return m_color; }
    void setColor(const QColor &color);
    qreal em() const { return m_em; }
    void setEm(qreal em);
    QString glyph() const { return m_glyph; }
    void setGlyph(const QString &glyph);
    bool bold() const { return m_bold; }
    void setBold(bool bold);

    // The outline the data describes: absolute and relative moveto, lineto,
    // horizontal, vertical, cubic and elliptical arc segments and closepath.
    // Parsing stops at the first token it cannot read.
    static QPainterPath parse(const QString &data);
    // The icon font's outline of `text` in the 24-unit box.
    static QPainterPath glyphOutline(const QString &text);

    void paint(QPainter *painter) override;

signals:
    void pathChanged();
    void colorChanged();
    void emChanged();
    void glyphChanged();
    void boldChanged();

private:
    void rebuild();

    QString m_data;
    QString m_glyph;
    QPainterPath m_outline;
    QColor m_color = Qt::black;
    qreal m_em = 24;
    bool m_bold = false;
};
