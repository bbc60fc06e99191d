#version 440

// One corner of a dot's camera-facing square.
layout(location = 0) in vec2 corner;
layout(location = 1) in vec4 dotCentre;

layout(location = 0) out vec2 uv;
layout(location = 1) out vec3 toLight;
layout(location = 2) out float pixelWidth;

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
    vec4 centre = modelView * vec4(dotCentre.xyz, 1.0);
    vec4 origin = modelView * vec4(0.0, 0.0, 0.0, 1.0);
    // The camera looks down -z: a dot in front of the centre is nearer.
    float nearHalf = centre.z > origin.z ? 1.0 : 0.0;
    if (nearHalf != dotCentre.w) {
        // Drawn by the other copy: a point outside the view, no pixels.
        gl_Position = vec4(2.0, 2.0, 2.0, 1.0);
        uv = vec2(0.0);
        toLight = vec3(0.0, 0.0, 1.0);
        pixelWidth = 1.0;
        return;
    }
    vec2 side = corner / max(itemSize, vec2(1.0)) * 2.0 - 1.0;
    float depth = max(-centre.z, 0.001);
    float pixelRadius = max(dotRadius * projection[1][1] / depth * 0.5 * itemSize.y * pixelRatio, 0.5);
    // One pixel more all round, for the smoothed edge.
    float grow = 1.0 + 1.0 / pixelRadius;
    vec4 clip = projection * vec4(centre.xy + side * dotRadius * grow, centre.z, 1.0);
    vec2 ndc = clip.xy / clip.w;
    vec2 local = vec2(ndc.x + 1.0, 1.0 - ndc.y) * 0.5 * itemSize;
    gl_Position = qt_Matrix * vec4(local, 0.0, 1.0);
    uv = side * grow;
    toLight = -centre.xyz;
    pixelWidth = 1.0 / pixelRadius;
}
