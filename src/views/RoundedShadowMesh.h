#pragma once

#include <QColor>
#include <QPointF>
#include <QQuickItem>
#include <QSizeF>
#include <QtQml/qqml.h>
#include <vector>

// The soft shadow of a rounded rectangle, drawn as vertex-coloured rings:
// the rectangle's outline offset inwards and outwards, each ring coloured
// by how much of a Gaussian blur of the rectangle covers it. Such outlines
// are exactly where the blurred shadow has one strength, so the picture
// only interpolates between rings; and vertex colours are what plain
// rectangles are drawn with, so the shadow needs no shader of its own.
class RoundedShadowMesh : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT

    // The rectangle casting the shadow, placed `margin` in from the
    // item's top-left corner.
    Q_PROPERTY(QSizeF boxSize READ boxSize WRITE setBoxSize NOTIFY shapeChanged)
    Q_PROPERTY(qreal cornerRadius READ cornerRadius WRITE setCornerRadius NOTIFY shapeChanged)
    Q_PROPERTY(qreal sigma READ sigma WRITE setSigma NOTIFY shapeChanged)
    Q_PROPERTY(qreal margin READ margin WRITE setMargin NOTIFY shapeChanged)
    // Its alpha is the shadow's strength.
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)

public:
    struct Vertex {
        QPointF position;
        // The share of the shadow's full strength at this point.
        qreal coverage = 0;
    };
    struct Mesh {
        std::vector<Vertex> vertices;
        std::vector<quint16> indices; // triangles
    };

    explicit RoundedShadowMesh(QQuickItem *parent = nullptr);

    // The strength, from 0 to 1, of the blurred shadow at `distance` from
    // the rectangle's outline (negative inside).
    static qreal coverage(qreal distance, qreal sigma);
    // The mesh of a `box` with its top-left corner at the origin.
    static Mesh build(QSizeF box, qreal cornerRadius, qreal sigma, qreal margin);

    QSizeF boxSize() const { return m_boxSize; }
    void setBoxSize(QSizeF size);
    qreal cornerRadius() const { return m_cornerRadius; }
    void setCornerRadius(qreal radius);
    qreal sigma() const { return m_sigma; }
    void setSigma(qreal sigma);
    qreal margin() const { return m_margin; }
    void setMargin(qreal margin);
    QColor color() const { return m_color; }
    void setColor(const QColor &color);

signals:
    void shapeChanged();
    void colorChanged();

protected:
    QSGNode *updatePaintNode(QSGNode *old, UpdatePaintNodeData *) override;

private:
    void setShapeValue(qreal &field, qreal value);

    QSizeF m_boxSize;
    qreal m_cornerRadius = 0;
    qreal m_sigma = 1;
    qreal m_margin = 0;
    QColor m_color = Qt::black;
    bool m_meshDirty = true;
};
