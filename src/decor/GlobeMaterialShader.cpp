#include "decor/GlobeMaterialShader.h"

#include "decor/GlobeMaterial.h"

#include <cstring>

namespace {
// Offsets in the shaders' std140 uniform block.
constexpr int matrixOffset = 0;
constexpr int modelViewOffset = 64;
constexpr int projectionOffset = 128;
constexpr int colorOffset = 192;
constexpr int itemSizeOffset = 208;
constexpr int dotRadiusOffset = 216;
constexpr int opacityOffset = 220;
constexpr int pixelRatioOffset = 224;

void put(QByteArray *buffer, int offset, const void *data, size_t size)
{
    if (offset + qsizetype(size) <= buffer->size())
        std::memcpy(buffer->data() + offset, data, size);
}
} // namespace

GlobeMaterialShader::GlobeMaterialShader()
{
    setShaderFileName(VertexStage, QStringLiteral(":/qt/qml/Murvane/shaders/globe.vert.qsb"));
    setShaderFileName(FragmentStage, QStringLiteral(":/qt/qml/Murvane/shaders/globe.frag.qsb"));
}

bool GlobeMaterialShader::updateUniformData(RenderState &state, QSGMaterial *newMaterial, QSGMaterial *)
{
    QByteArray *buffer = state.uniformData();
    if (state.isMatrixDirty())
        put(buffer, matrixOffset, state.combinedMatrix().constData(), 64);
    if (state.isOpacityDirty()) {
        const float opacity = state.opacity();
        put(buffer, opacityOffset, &opacity, 4);
    }
    const auto *material = static_cast<const GlobeMaterial *>(newMaterial);
    put(buffer, modelViewOffset, material->modelView.constData(), 64);
    put(buffer, projectionOffset, material->projection.constData(), 64);
    const QColor rgba = material->color.toRgb();
    const float color[4] = {rgba.redF(), rgba.greenF(), rgba.blueF(), rgba.alphaF()};
    put(buffer, colorOffset, color, sizeof color);
    const float size[2] = {float(material->itemSize.width()), float(material->itemSize.height())};
    put(buffer, itemSizeOffset, size, sizeof size);
    put(buffer, dotRadiusOffset, &material->dotRadius, 4);
    const float pixelRatio = state.devicePixelRatio();
    put(buffer, pixelRatioOffset, &pixelRatio, 4);
    return true;
}
