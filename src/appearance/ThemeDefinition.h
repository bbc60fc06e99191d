#pragma once

#include <QColor>
#include <QObject>
#include <QtQml/qqml.h>

// Every colour a theme paints with. Paired fields end in Dark and Light;
// a view takes the one matching the colour scheme in force. ballButton,
// pinSwipe and the stroke width serve both schemes.
class ThemeDefinition
{
    Q_GADGET
    QML_VALUE_TYPE(themeDefinition)

    Q_PROPERTY(QColor darkStart MEMBER darkStart)
    Q_PROPERTY(QColor darkEnd MEMBER darkEnd)
    Q_PROPERTY(QColor lightStart MEMBER lightStart)
    Q_PROPERTY(QColor lightEnd MEMBER lightEnd)
    Q_PROPERTY(QColor accentDark MEMBER accentDark)
    Q_PROPERTY(QColor accentLight MEMBER accentLight)
    Q_PROPERTY(QColor selectedHeaderBackgroundDark MEMBER selectedHeaderBackgroundDark)
    Q_PROPERTY(QColor selectedHeaderBackgroundLight MEMBER selectedHeaderBackgroundLight)
    Q_PROPERTY(QColor selectedHeaderStrokeColorDark MEMBER selectedHeaderStrokeColorDark)
    Q_PROPERTY(QColor selectedHeaderStrokeColorLight MEMBER selectedHeaderStrokeColorLight)
    Q_PROPERTY(double selectedHeaderStrokeWidth MEMBER selectedHeaderStrokeWidth)
    Q_PROPERTY(QColor outlineDark MEMBER outlineDark)
    Q_PROPERTY(QColor outlineLight MEMBER outlineLight)
    Q_PROPERTY(QColor listRowBackgroundDark MEMBER listRowBackgroundDark)
    Q_PROPERTY(QColor listRowBackgroundLight MEMBER listRowBackgroundLight)
    Q_PROPERTY(QColor textCompleteFillDark MEMBER textCompleteFillDark)
    Q_PROPERTY(QColor textCompleteFillLight MEMBER textCompleteFillLight)
    Q_PROPERTY(QColor completeFillDark MEMBER completeFillDark)
    Q_PROPERTY(QColor completeFillLight MEMBER completeFillLight)
    Q_PROPERTY(QColor ballButton MEMBER ballButton)
    Q_PROPERTY(QColor pinSwipe MEMBER pinSwipe)

public:
    QColor darkStart;                      // background gradient start, dark
    QColor darkEnd;                        // background gradient end, dark
    QColor lightStart;                     // background gradient start, light
    QColor lightEnd;                       // background gradient end, light
    QColor accentDark;
    QColor accentLight;
    QColor selectedHeaderBackgroundDark;   // selected list chip in the header row
    QColor selectedHeaderBackgroundLight;
    QColor selectedHeaderStrokeColorDark;  // its outline
    QColor selectedHeaderStrokeColorLight;
    double selectedHeaderStrokeWidth = 0;  // points
    QColor outlineDark;
    QColor outlineLight;
    QColor listRowBackgroundDark;
    QColor listRowBackgroundLight;
    QColor textCompleteFillDark;           // text of a done item
    QColor textCompleteFillLight;
    QColor completeFillDark;               // done marker
    QColor completeFillLight;
    QColor ballButton;
    QColor pinSwipe;

    friend bool operator==(const ThemeDefinition &, const ThemeDefinition &) = default;
};
