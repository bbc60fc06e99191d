#pragma once

#include <QSGMaterialShader>

// Feeds GlobeMaterial's uniforms to the baked globe shaders.
class GlobeMaterialShader : public QSGMaterialShader
{
public:
    GlobeMaterialShader();

    bool updateUniformData(RenderState &state, QSGMaterial *newMaterial, QSGMaterial *oldMaterial) override;
};
