#include "grid/text_painter.h"

#include <QPainter>
#include <cmath>

namespace partwright::grid {

namespace {

constexpr int keptLines = 8192;
/// Longer texts are cut before they are measured: no cell shows so many characters.
constexpr qsizetype longestShown = 1000;

constexpr quint8 faces = boldFont | italicFont;

QString oneLine(const QString& text) {
    QString line = text.left(longestShown);
    for (QChar& c : line)
        if (c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
            c == QChar::ParagraphSeparator)
            c = u' ';
    return line;
}

} // namespace

TextPainter::TextPainter() : lines_(keptLines) {
    setFont(QFont());
}

void TextPainter::setFont(const QFont& font) {
    if (fonts_[plainFont] == font && heights_[plainFont] != 0)
        return;
    for (quint8 variant = 0; variant < fonts_.size(); ++variant) {
        QFont& kept = fonts_[variant];
        kept = font;
        if ((variant & boldFont) != 0)
            kept.setBold(true);
        if ((variant & italicFont) != 0)
            kept.setItalic(true);
        heights_[variant] = QFontMetrics(kept).height();
    }
    lines_.clear();
}

int TextPainter::widthOf(const QString& text, quint8 variant) const {
    return QFontMetrics(fonts_[variant & faces]).horizontalAdvance(oneLine(text));
}

void TextPainter::begin() {
    current_ = -1;
}

const TextPainter::Line& TextPainter::lineFor(const Key& key) {
    if (const Line* kept = lines_.object(key))
        return *kept;
    const QFont& font = fonts_[key.variant];
    auto* line = new Line;
    line->text.setTextFormat(Qt::PlainText);
    line->text.setPerformanceHint(QStaticText::AggressiveCaching);
    line->text.setText(QFontMetrics(font).elidedText(oneLine(key.text), Qt::ElideRight, key.width));
    line->text.prepare(QTransform(), font);
    line->width = static_cast<int>(std::ceil(line->text.size().width()));
    lines_.insert(key, line);
    return *line;
}

void TextPainter::draw(QPainter& painter, const QRect& area, const QString& text, quint8 look,
                       Qt::AlignmentFlag align) {
    if (text.isEmpty() || area.width() <= 0)
        return;
    const auto variant = static_cast<quint8>(look & faces);
    const Line& line = lineFor({text, area.width(), variant});
    int left = area.left();
    if (align == Qt::AlignRight)
        left += area.width() - line.width;
    else if (align == Qt::AlignHCenter)
        left += (area.width() - line.width) / 2;
    if (current_ != variant) {
        painter.setFont(fonts_[variant]);
        current_ = variant;
    }
    const int top = area.top() + (area.height() - heights_[variant]) / 2;
    painter.drawStaticText(left, top, line.text);
    if ((look & underlinedFont) != 0) {
        // By hand: a static text draws its own underline off its line.
        const int base = top + QFontMetrics(fonts_[variant]).ascent();
        painter.fillRect(left, base + 1, line.width, 1, painter.pen().color());
    }
}

} // namespace partwright::grid
