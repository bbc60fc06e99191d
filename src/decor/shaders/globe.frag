#version 440

layout(location = 0) in vec2 uv;
layout(location = 1) in vec3 toLight;
layout(location = 2) in float pixelWidth;

layout(location = 0) out vec4 fragColor;

layout(std140, binding = 0) uniform buf {
    mat4 qt_Matrix;
    mat4 modelView;
    mat4 projection;
    vec4 color;
    vec2 itemSize;
    float dotRadius;
    float qt_Opacity;
    float pixelRatio;
};

void main()
{
    float r2 = dot(uv, uv);
    // Covered fraction of the pixel across the sphere's outline.
    float coverage = clamp((1.0 - sqrt(r2)) / pixelWidth + 0.5, 0.0, 1.0);
    if (coverage <= 0.0)
        discard;
    // A pixel on the outline shows the shade of the half of it that is on
    // the sphere, not the black of the outline itself.
    float r = min(sqrt(r2), max(1.0 - 0.5 * pixelWidth, 0.0));
    vec3 normal = vec3(normalize(uv + vec2(1e-6, 0.0)) * r, sqrt(1.0 - r * r));
    float diffuse = max(dot(normalize(normal), normalize(toLight)), 0.0);
    // Lit in linear light, shown in sRGB.
    vec3 rgb = color.rgb * pow(diffuse, 1.0 / 2.2);
    float alpha = coverage * color.a * qt_Opacity;
    fragColor = vec4(rgb * alpha, alpha);
}
