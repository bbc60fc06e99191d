#pragma once

#include <QColor>
#include <QMatrix4x4>
#include <QSGMaterial>
#include <QSizeF>

// How a globe's dots look: each square of GlobeGeometry is drawn as a sphere
// of the dot radius in the dot colour, lit by a light at the camera. The
// node and camera transforms are uniforms, so turning the globe changes no
// vertex.
class GlobeMaterial : public QSGMaterial
{
public:
    GlobeMaterial();

    QSGMaterialType *type() const override;
    QSGMaterialShader *createShader(QSGRendererInterface::RenderMode renderMode) const override;
    int compare(const QSGMaterial *other) const override;

    // From the dots' parent node to the camera's space.
    QMatrix4x4 modelView;
    QMatrix4x4 projection;
    QColor color;
    QSizeF itemSize;
    float dotRadius = 1;
};
