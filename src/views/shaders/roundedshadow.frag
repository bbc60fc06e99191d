#version 440
// The soft shadow of a rounded rectangle: the rectangle's signed distance
// field seen through a Gaussian edge, which is exact for straight edges and
// close enough at the corners.

layout(location = 0) in vec2 qt_TexCoord0;
layout(location = 0) out vec4 fragColor;

layout(std140, binding = 0) uniform buf {
    mat4 qt_Matrix;
    float qt_Opacity;
    vec4 shadowColor;
    float strength;
    vec2 boxSize;
    float cornerRadius;
    float sigma;
    float margin;
};

// Abramowitz and Stegun 7.1.26, good to 1.5e-7.
float erfApprox(float x)
{
    float s = sign(x);
    x = abs(x);
    float t = 1.0 / (1.0 + 0.3275911 * x);
    float y = 1.0 - (((((1.061405429 * t - 1.453152027) * t) + 1.421413741) * t - 0.284496736) * t + 0.254829592) * t * exp(-x * x);
    return s * y;
}

void main()
{
    vec2 extent = boxSize + 2.0 * margin;
    vec2 p = qt_TexCoord0 * extent - 0.5 * extent;
    vec2 halfBox = 0.5 * boxSize;
    float r = min(cornerRadius, min(halfBox.x, halfBox.y));
    vec2 q = abs(p) - halfBox + r;
    float d = length(max(q, 0.0)) + min(max(q.x, q.y), 0.0) - r;
    float coverage = 0.5 - 0.5 * erfApprox(d / (sigma * 1.41421356));
    fragColor = vec4(shadowColor.rgb, 1.0) * strength * coverage * qt_Opacity;
}
