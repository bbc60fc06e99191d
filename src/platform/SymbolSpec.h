#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqml.h>

// How one icon of the app's symbol set is drawn. Most icons are a single
// glyph of the icon font; a few put a smaller glyph inside another (the
// circled and bubbled variants), turn a glyph, or are drawn as a path where
// the font has nothing close enough.
class SymbolSpec
{
    Q_GADGET
    QML_VALUE_TYPE(symbolSpec)

    // Text of the main glyph; empty for a drawn icon or an unknown name.
    Q_PROPERTY(QString glyph MEMBER glyph)
    // Glyph drawn over the centre of the main one; empty for none.
    Q_PROPERTY(QString badge MEMBER badge)
    // The badge's size as a fraction of the main glyph's.
    Q_PROPERTY(double badgeScale MEMBER badgeScale)
    // Vertical shift of the badge as a fraction of the icon's size.
    Q_PROPERTY(double badgeOffsetY MEMBER badgeOffsetY)
    // Turn of the whole icon in degrees, clockwise.
    Q_PROPERTY(double rotation MEMBER rotation)
    // SVG path data in a 24 by 24 box, filled with the non-zero rule; only
    // for drawn icons.
    Q_PROPERTY(QString path MEMBER path)

public:
    QString glyph;
    QString badge;
    double badgeScale = 0;
    double badgeOffsetY = 0;
    double rotation = 0;
    QString path;

    bool isValid() const { return !glyph.isEmpty() || !path.isEmpty(); }
    friend bool operator==(const SymbolSpec &, const SymbolSpec &) = default;
};
