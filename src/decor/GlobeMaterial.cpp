#include "decor/GlobeMaterial.h"

#include "decor/GlobeMaterialShader.h"

GlobeMaterial::GlobeMaterial()
{
    // The vertices are not in item coordinates, so they must not be merged
    // into a batch with others.
    setFlag(QSGMaterial::Blending | QSGMaterial::RequiresFullMatrix);
}

QSGMaterialType *GlobeMaterial::type() const
{
    static QSGMaterialType type;
    return &type;
}

QSGMaterialShader *GlobeMaterial::createShader(QSGRendererInterface::RenderMode) const
{
    return new GlobeMaterialShader;
}

int GlobeMaterial::compare(const QSGMaterial *other) const
{
    // Two globes never share a draw call.
    return this == other ? 0 : (this < other ? -1 : 1);
}
