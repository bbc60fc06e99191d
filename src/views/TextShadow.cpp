#include "views/TextShadow.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QQuickWindow>
#include <QSGSimpleTextureNode>
#include <algorithm>
#include <cmath>
#include <vector>

namespace {

// One pass of a Gaussian blur of the alpha channel along rows (`step` 1) or
// columns (`step` the row length), from `in` into `out`.
void blurPass(const std::vector<float> &in, std::vector<float> &out, int lines, int length, int stride, int step,
              const std::vector<float> &kernel)
{
    const int reach = int(kernel.size()) / 2;
    for (int line = 0; line < lines; ++line) {
        const float *src = in.data() + qsizetype(line) * stride;
        float *dst = out.data() + qsizetype(line) * stride;
        for (int i = 0; i < length; ++i) {
            float sum = 0;
            const int from = std::max(0, i - reach);
            const int to = std::min(length - 1, i + reach);
            for (int j = from; j <= to; ++j)
                sum += src[qsizetype(j) * step] * kernel[j - i + reach];
            dst[qsizetype(i) * step] = sum;
        }
    }
}

} // namespace

TextShadow::TextShadow(QQuickItem *parent) : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    // Beneath the text it belongs to.
    setZ(-1);
}

qreal TextShadow::margin(qreal sigma)
{
    return std::ceil(3 * std::max(sigma, 0.0));
}

QImage TextShadow::render(const QString &text, const QFont &font, qreal sigma, qreal devicePixelRatio)
{
    const QFontMetricsF metrics(font);
    const qreal textWidth = metrics.horizontalAdvance(text);
    qreal dpr = devicePixelRatio > 0 && std::isfinite(devicePixelRatio) ? devicePixelRatio : 1;
    if (text.isEmpty() || textWidth <= 0 || !std::isfinite(sigma))
        return {};
    sigma = std::max(sigma, 0.0);
    // A blur this wide has no detail a finer picture would show: half the
    // pixels each way, stretched when drawn, look the same.
    if (sigma * dpr >= 4)
        dpr /= 2;
    const qreal edge = margin(sigma);
    const int width = int(std::ceil((textWidth + 2 * edge) * dpr));
    const int height = int(std::ceil((metrics.height() + 2 * edge) * dpr));
    // A shadow is never worth more than a few megabytes.
    if (width <= 0 || height <= 0 || qint64(width) * height > 4'000'000)
        return {};

    QImage glyphs(width, height, QImage::Format_ARGB32_Premultiplied);
    glyphs.fill(Qt::transparent);
    {
        QPainter painter(&glyphs);
        painter.scale(dpr, dpr);
        painter.setFont(font);
        painter.setPen(Qt::black);
        painter.drawText(QPointF(edge, edge + metrics.ascent()), text);
    }

    std::vector<float> alpha(size_t(width) * size_t(height));
    for (int y = 0; y < height; ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(glyphs.constScanLine(y));
        for (int x = 0; x < width; ++x)
            alpha[size_t(y) * size_t(width) + size_t(x)] = float(qAlpha(line[x])) / 255.f;
    }
    const qreal deviceSigma = sigma * dpr;
    if (deviceSigma >= 0.1) {
        const int reach = int(std::ceil(3 * deviceSigma));
        std::vector<float> kernel(size_t(2 * reach + 1));
        float total = 0;
        for (int i = -reach; i <= reach; ++i)
            total += kernel[size_t(i + reach)] = float(std::exp(-0.5 * i * i / (deviceSigma * deviceSigma)));
        for (float &k : kernel)
            k /= total;
        std::vector<float> across(alpha.size());
        blurPass(alpha, across, height, width, width, 1, kernel);
        blurPass(across, alpha, width, height, 1, width, kernel);
    }

    QImage shadow(width, height, QImage::Format_Alpha8);
    shadow.setDevicePixelRatio(dpr);
    for (int y = 0; y < height; ++y) {
        uchar *line = shadow.scanLine(y);
        for (int x = 0; x < width; ++x)
            line[x] = uchar(std::lround(std::clamp(alpha[size_t(y) * size_t(width) + size_t(x)], 0.f, 1.f) * 255));
    }
    return shadow;
}

void TextShadow::setText(const QString &text)
{
    if (m_text == text)
        return;
    m_text = text;
    reshape();
}

void TextShadow::setFont(const QFont &font)
{
    if (m_font == font)
        return;
    m_font = font;
    reshape();
}

void TextShadow::setSigma(qreal sigma)
{
    if (qFuzzyCompare(m_sigma, sigma))
        return;
    m_sigma = sigma;
    reshape();
}

void TextShadow::setColor(const QColor &color)
{
    if (m_color == color)
        return;
    m_color = color;
    // The colour is applied when the picture is made.
    polish();
    emit colorChanged();
}

void TextShadow::reshape()
{
    const qreal edge = margin();
    const QFontMetricsF metrics(m_font);
    setSize(QSizeF(metrics.horizontalAdvance(m_text) + 2 * edge, metrics.height() + 2 * edge));
    polish();
    emit shapeChanged();
}

void TextShadow::itemChange(ItemChange change, const ItemChangeData &value)
{
    QQuickItem::itemChange(change, value);
    if (change == ItemDevicePixelRatioHasChanged || change == ItemSceneChange)
        polish();
}

void TextShadow::updatePolish()
{
    const qreal dpr = window() ? window()->effectiveDevicePixelRatio() : 1;
    const QImage alpha = render(m_text, m_font, m_sigma, dpr);
    if (alpha.isNull()) {
        m_image = QImage();
    } else {
        // Premultiplied colour times the blurred coverage.
        m_image = QImage(alpha.size(), QImage::Format_ARGB32_Premultiplied);
        m_image.setDevicePixelRatio(alpha.devicePixelRatio());
        const qreal strength = m_color.alphaF();
        for (int y = 0; y < alpha.height(); ++y) {
            const uchar *in = alpha.constScanLine(y);
            auto *out = reinterpret_cast<QRgb *>(m_image.scanLine(y));
            for (int x = 0; x < alpha.width(); ++x) {
                const qreal a = strength * in[x] / 255.0;
                out[x] = qRgba(int(std::lround(m_color.red() * a)), int(std::lround(m_color.green() * a)),
                               int(std::lround(m_color.blue() * a)), int(std::lround(a * 255)));
            }
        }
    }
    m_imageChanged = true;
    update();
}

QSGNode *TextShadow::updatePaintNode(QSGNode *old, UpdatePaintNodeData *)
{
    auto *node = static_cast<QSGSimpleTextureNode *>(old);
    if (m_image.isNull()) {
        delete node;
        return nullptr;
    }
    if (!node) {
        node = new QSGSimpleTextureNode;
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Linear);
        m_imageChanged = true;
    }
    if (m_imageChanged) {
        m_imageChanged = false;
        node->setTexture(window()->createTextureFromImage(m_image, QQuickWindow::TextureHasAlphaChannel));
    }
    node->setRect(boundingRect());
    return node;
}
