#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QQuickItem>
#include <QtQml/qqml.h>

// The soft shadow of a line of text: the glyphs' silhouette, blurred, in
// one colour. It is a picture made once per text, font and size, so it is
// drawn with the plain texture shader the app's images already use, and
// costs nothing while the text stays the same. Its size is the picture's:
// the text's top-left corner lies `margin` in from its own.
class TextShadow : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(QString text READ text WRITE setText NOTIFY shapeChanged)
    Q_PROPERTY(QFont font READ font WRITE setFont NOTIFY shapeChanged)
    // The blur's standard deviation, in points.
    Q_PROPERTY(qreal sigma READ sigma WRITE setSigma NOTIFY shapeChanged)
    // Its alpha is the shadow's strength.
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
    // How far the picture reaches past the text on each side, in points.
    Q_PROPERTY(qreal margin READ margin NOTIFY shapeChanged)

public:
    explicit TextShadow(QQuickItem *parent = nullptr);

    // The shadow of `text` at `devicePixelRatio`, alpha only: the text's
    // top-left corner lies `margin(sigma)` points in from the picture's.
    // A null image when there is nothing to draw.
    static QImage render(const QString &text, const QFont &font, qreal sigma, qreal devicePixelRatio);
    static qreal margin(qreal sigma);

    QString text() const { return m_text; }
    void setText(const QString &text);
    QFont font() const { return m_font; }
    void setFont(const QFont &font);
    qreal sigma() const { return m_sigma; }
    void setSigma(qreal sigma);
    QColor color() const { return m_color; }
    void setColor(const QColor &color);
    qreal margin() const { return margin(m_sigma); }

signals:
    void shapeChanged();
    void colorChanged();

protected:
    void updatePolish() override;
    QSGNode *updatePaintNode(QSGNode *old, UpdatePaintNodeData *) override;
    void itemChange(ItemChange change, const ItemChangeData &value) override;

private:
    void reshape();

    QString m_text;
    QFont m_font;
    qreal m_sigma = 5;
    QColor m_color = QColor(0, 0, 0, 51);
    // Made on the GUI thread, handed to the render thread at the next sync.
    QImage m_image;
    bool m_imageChanged = false;
};
