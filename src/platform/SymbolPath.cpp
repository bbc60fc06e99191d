#include "SymbolPath.h"

#include "Symbols.h"

#include <QFont>
#include <QPainter>
#include <QRawFont>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

// Reads numbers and command letters from SVG path data.
class Scanner
{
public:
    explicit Scanner(const QString &data)
        : m_data(data)
    {
    }

    void skipSeparators()
    {
        while (m_pos < m_data.size() && (m_data[m_pos].isSpace() || m_data[m_pos] == u','))
            ++m_pos;
    }
    bool atEnd()
    {
        skipSeparators();
        return m_pos >= m_data.size();
    }
    bool atNumber()
    {
        skipSeparators();
        if (m_pos >= m_data.size())
            return false;
        const QChar c = m_data[m_pos];
        return c.isDigit() || c == u'-' || c == u'+' || c == u'.';
    }
    QChar command()
    {
        skipSeparators();
        return m_pos < m_data.size() && m_data[m_pos].isLetter() ? m_data[m_pos++] : QChar();
    }
    bool number(double *value)
    {
        if (!atNumber())
            return false;
        const qsizetype start = m_pos;
        if (m_data[m_pos] == u'-' || m_data[m_pos] == u'+')
            ++m_pos;
        bool dot = false;
        bool exponent = false;
        while (m_pos < m_data.size()) {
            const QChar c = m_data[m_pos];
            if (c.isDigit()) {
                ++m_pos;
            } else if (c == u'.' && !dot && !exponent) {
                dot = true;
                ++m_pos;
            } else if ((c == u'e' || c == u'E') && !exponent) {
                exponent = true;
                ++m_pos;
                if (m_pos < m_data.size() && (m_data[m_pos] == u'-' || m_data[m_pos] == u'+'))
                    ++m_pos;
            } else {
                break;
            }
        }
        bool ok = false;
        *value = QStringView(m_data).mid(start, m_pos - start).toDouble(&ok);
        return ok;
    }
    // A flag of an arc may be written without a separator before the next
    // number ("0 1,1" or "011").
    bool flag(bool *value)
    {
        if (!atNumber() || (m_data[m_pos] != u'0' && m_data[m_pos] != u'1'))
            return false;
        *value = m_data[m_pos++] == u'1';
        return true;
    }

private:
    const QString &m_data;
    qsizetype m_pos = 0;
};

// The elliptical arc from the current point to `to`, as cubic curves (the
// endpoint-to-centre conversion of the SVG arc).
void arcTo(QPainterPath &path, double rx, double ry, double rotationDeg, bool large, bool sweep, QPointF to)
{
    const QPointF from = path.currentPosition();
    if (from == to)
        return;
    rx = std::abs(rx);
    ry = std::abs(ry);
    if (rx == 0 || ry == 0) {
        path.lineTo(to);
        return;
    }
    const double phi = rotationDeg * std::numbers::pi / 180;
    const double cosPhi = std::cos(phi);
    const double sinPhi = std::sin(phi);
    const double dx = (from.x() - to.x()) / 2;
    const double dy = (from.y() - to.y()) / 2;
    const double x1 = cosPhi * dx + sinPhi * dy;
    const double y1 = -sinPhi * dx + cosPhi * dy;
    // Radii too small to reach are scaled up until they just do.
    const double reach = x1 * x1 / (rx * rx) + y1 * y1 / (ry * ry);
    if (reach > 1) {
        rx *= std::sqrt(reach);
        ry *= std::sqrt(reach);
    }
    const double numerator = rx * rx * ry * ry - rx * rx * y1 * y1 - ry * ry * x1 * x1;
    const double denominator = rx * rx * y1 * y1 + ry * ry * x1 * x1;
    double factor = std::sqrt(std::max(0.0, numerator / denominator));
    if (large == sweep)
        factor = -factor;
    const double cx1 = factor * rx * y1 / ry;
    const double cy1 = -factor * ry * x1 / rx;
    const double cx = cosPhi * cx1 - sinPhi * cy1 + (from.x() + to.x()) / 2;
    const double cy = sinPhi * cx1 + cosPhi * cy1 + (from.y() + to.y()) / 2;

    const auto angle = [](double ux, double uy, double vx, double vy) {
        return std::atan2(ux * vy - uy * vx, ux * vx + uy * vy);
    };
    const double theta = angle(1, 0, (x1 - cx1) / rx, (y1 - cy1) / ry);
    double delta = angle((x1 - cx1) / rx, (y1 - cy1) / ry, (-x1 - cx1) / rx, (-y1 - cy1) / ry);
    if (!sweep && delta > 0)
        delta -= 2 * std::numbers::pi;
    else if (sweep && delta < 0)
        delta += 2 * std::numbers::pi;

    // At most a quarter turn per curve keeps each one close to the ellipse.
    const int segments = std::max(1, int(std::ceil(std::abs(delta) / (std::numbers::pi / 2) - 1e-9)));
    const double step = delta / segments;
    const double handle = 4.0 / 3.0 * std::tan(step / 4);
    // A point of the ellipse at parameter t, moved by (ox, oy) before the
    // ellipse is turned and placed: the curves' handles lie along tangents.
    const auto point = [&](double t, double ox, double oy) {
        const double ex = rx * std::cos(t) + ox;
        const double ey = ry * std::sin(t) + oy;
        return QPointF(cosPhi * ex - sinPhi * ey + cx, sinPhi * ex + cosPhi * ey + cy);
    };
    for (int i = 0; i < segments; ++i) {
        const double t1 = theta + i * step;
        const double t2 = t1 + step;
        const QPointF c1 = point(t1, -handle * rx * std::sin(t1), handle * ry * std::cos(t1));
        const QPointF c2 = point(t2, handle * rx * std::sin(t2), -handle * ry * std::cos(t2));
        path.cubicTo(c1, c2, i == segments - 1 ? to : point(t2, 0, 0));
    }
}

} // namespace

SymbolPath::SymbolPath(QQuickItem *parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
}

void SymbolPath::setPath(const QString &data)
{
    if (data == m_data)
        return;
    m_data = data;
    rebuild();
    emit pathChanged();
}

void SymbolPath::setGlyph(const QString &glyph)
{
    if (glyph == m_glyph)
        return;
    m_glyph = glyph;
    rebuild();
    emit glyphChanged();
}

void SymbolPath::rebuild()
{
    m_outline = m_glyph.isEmpty() ? parse(m_data) : glyphOutline(m_glyph);
    update();
}

QPainterPath SymbolPath::glyphOutline(const QString &text)
{
    QFont font(Symbols::fontFamily());
    font.setPixelSize(24);
    const QRawFont raw = QRawFont::fromFont(font);
    const QList<quint32> glyphs = raw.glyphIndexesForString(text);
    const QList<QPointF> advances = raw.advancesForGlyphIndexes(glyphs);
    qreal width = 0;
    for (const QPointF &advance : advances)
        width += advance.x();
    // Centred across the box, on the baseline the text uses.
    QPointF pen((24 - width) / 2, 24 * Symbols::baselineRatio());
    QPainterPath outline;
    outline.setFillRule(Qt::WindingFill);
    for (qsizetype i = 0; i < glyphs.size(); ++i) {
        outline.addPath(raw.pathForGlyph(glyphs[i]).translated(pen));
        pen += advances.value(i);
    }
    return outline;
}

void SymbolPath::setColor(const QColor &color)
{
    if (color == m_color)
        return;
    m_color = color;
    update();
    emit colorChanged();
}

void SymbolPath::setBold(bool bold)
{
    if (bold == m_bold)
        return;
    m_bold = bold;
    update();
    emit boldChanged();
}

void SymbolPath::setEm(qreal em)
{
    if (em == m_em)
        return;
    m_em = em;
    update();
    emit emChanged();
}

void SymbolPath::paint(QPainter *painter)
{
    if (m_outline.isEmpty())
        return;
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate((width() - m_em) / 2, (height() - m_em) / 2);
    painter->scale(m_em / 24, m_em / 24);
    painter->fillPath(m_outline, m_color);
    if (m_bold) {
        // Cosmetic: the same weight added at any size.
        QPen pen(m_color, 1.5);
        pen.setCosmetic(true);
        pen.setJoinStyle(Qt::MiterJoin);
        painter->strokePath(m_outline, pen);
    }
}

QPainterPath SymbolPath::parse(const QString &data)
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    Scanner in(data);
    QPointF start;
    QChar command;
    while (!in.atEnd()) {
        if (!in.atNumber()) {
            command = in.command();
            if (command.isNull())
                break;
        } else if (command.isNull() || command.toUpper() == u'Z') {
            break;
        }
        const bool relative = command.isLower();
        const QPointF origin = relative ? path.currentPosition() : QPointF();
        double a[7];
        const auto read = [&in, &a](int count) {
            for (int i = 0; i < count; ++i) {
                if (!in.number(&a[i]))
                    return false;
            }
            return true;
        };
        switch (command.toUpper().unicode()) {
        case u'M':
            if (!read(2))
                return path;
            start = origin + QPointF(a[0], a[1]);
            path.moveTo(start);
            // Further pairs after a moveto are lines.
            command = relative ? u'l' : u'L';
            break;
        case u'L':
            if (!read(2))
                return path;
            path.lineTo(origin + QPointF(a[0], a[1]));
            break;
        case u'H':
            if (!read(1))
                return path;
            path.lineTo((relative ? origin.x() : 0) + a[0], path.currentPosition().y());
            break;
        case u'V':
            if (!read(1))
                return path;
            path.lineTo(path.currentPosition().x(), (relative ? origin.y() : 0) + a[0]);
            break;
        case u'C':
            if (!read(6))
                return path;
            path.cubicTo(origin + QPointF(a[0], a[1]), origin + QPointF(a[2], a[3]), origin + QPointF(a[4], a[5]));
            break;
        case u'A': {
            bool large = false;
            bool sweep = false;
            if (!in.number(&a[0]) || !in.number(&a[1]) || !in.number(&a[2]) || !in.flag(&large) || !in.flag(&sweep)
                || !in.number(&a[3]) || !in.number(&a[4]))
                return path;
            arcTo(path, a[0], a[1], a[2], large, sweep, origin + QPointF(a[3], a[4]));
            break;
        }
        case u'Z':
            path.closeSubpath();
            path.moveTo(start);
            break;
        default:
            return path;
        }
    }
    return path;
}
