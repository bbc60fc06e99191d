#pragma once

#include "SymbolSpec.h"

#include <QObject>
#include <QStringList>
#include <QtQml/qqml.h>

// The app's icons by their symbol identifiers ("pin.fill", "circle", ...),
// drawn with the Material Design Icons font that the app carries in its
// resources. SymbolIcon draws what this table says.
class Symbols : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    Q_PROPERTY(QString fontFamily READ fontFamily CONSTANT)
    // The font's em box relative to an icon's point size: the font leaves a
    // margin of 1/12 of the em on each side, so an em of 1.2 times the point
    // size makes the drawn shape about as large as the point size.
    Q_PROPERTY(double emScale READ emScale CONSTANT)
    // Where the baseline sits in the em box, from its top.
    Q_PROPERTY(double baselineRatio READ baselineRatio CONSTANT)
    Q_PROPERTY(QStringList names READ names CONSTANT)

public:
    explicit Symbols(QObject *parent = nullptr);

    static QString fontFamily();
    // The icon font inside the app's resources.
    static QString fontResource();
    static double emScale() { return 1.2; }
    static double baselineRatio() { return 448.0 / 512.0; }

    // Every identifier the table knows, sorted.
    static QStringList names();
    // The icon for an identifier; an invalid spec for an unknown one.
    static SymbolSpec lookup(const QString &name);

    Q_INVOKABLE SymbolSpec spec(const QString &name) const { return lookup(name); }
    Q_INVOKABLE bool contains(const QString &name) const { return lookup(name).isValid(); }
};
