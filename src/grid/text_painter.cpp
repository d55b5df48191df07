#include "grid/text_painter.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace partwright::grid {

namespace {

constexpr int keptLines = 4096;
/// Longer texts are cut before they are measured: no cell shows so many characters.
constexpr qsizetype longestShown = 1000;
constexpr int faceMask = boldFont | italicFont;
constexpr char16_t ellipsis = u'\u2026';

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
    if (faces_[plainFont].font == font && faces_[plainFont].height != 0)
        return;
    for (std::size_t number = 0; number < faces_.size(); ++number) {
        Face& face = faces_[number];
        face.font = font;
        if ((number & boldFont) != 0)
            face.font.setBold(true);
        if ((number & italicFont) != 0)
            face.font.setItalic(true);
        prepare(face);
    }
    lines_.clear();
}

void TextPainter::prepare(Face& face) {
    const QFontMetrics metrics(face.font);
    face.height = metrics.height();
    face.ascent = metrics.ascent();
    QString characters;
    for (char16_t c = firstPlain; c < endPlain; ++c)
        characters += QChar(c);
    characters += QChar(ellipsis);
    const QRawFont raw = QRawFont::fromFont(face.font);
    const auto glyphs = raw.glyphIndexesForString(characters);
    face.complete = raw.isValid() && glyphs.size() == characters.size() && !glyphs.contains(0U);
    if (!face.complete)
        return;
    for (std::size_t i = 0; i < face.glyphs.size(); ++i) {
        face.glyphs[i] = glyphs[static_cast<qsizetype>(i)];
        face.advances[i] = metrics.horizontalAdvance(characters[static_cast<qsizetype>(i)]);
    }
    face.run = QGlyphRun();
    face.run.setRawFont(raw);
}

int TextPainter::widthOf(const QString& text, quint8 look) const {
    const Face& face = faces_[look & faceMask];
    return QFontMetrics(face.font).horizontalAdvance(oneLine(text));
}

void TextPainter::begin(bool paper) {
    current_ = -1;
    paper_ = paper;
}

bool TextPainter::setPlain(const Face& face, const QString& text, int room) {
    const double dots = face.advances[plainCount];
    std::size_t count = 0;
    std::size_t beforeDots = 0;
    double x = 0;
    for (const QChar c : text) {
        if (c < QChar(firstPlain) || c >= QChar(endPlain) || count + 1 >= longestPlain)
            return false;
        const auto place = static_cast<std::size_t>(c.unicode() - firstPlain);
        if (x + dots <= room)
            beforeDots = count;
        glyphs_[count] = face.glyphs[place];
        places_[count] = QPointF(x, 0);
        x += face.advances[place];
        ++count;
        if (x > room) {
            // What the rest holds does not matter any more, so long as it is one line of text.
            x = places_[beforeDots].x();
            glyphs_[beforeDots] = face.glyphs[plainCount];
            count = beforeDots + 1;
            x += dots;
            break;
        }
    }
    count_ = static_cast<int>(count);
    width_ = x;
    return true;
}

const TextPainter::Line& TextPainter::lineFor(const Key& key) {
    if (const Line* kept = lines_.object(key))
        return *kept;
    const QFont& font = faces_[key.face].font;
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
    const auto number = static_cast<quint8>(look & faceMask);
    Face& face = faces_[number];
    const bool plain = !paper_ && face.complete && setPlain(face, text, area.width());
    const Line* const line = plain ? nullptr : &lineFor({text, area.width(), number});
    const int width = plain ? static_cast<int>(std::ceil(width_)) : line->width;
    int left = area.left();
    if (align == Qt::AlignRight)
        left += area.width() - width;
    else if (align == Qt::AlignHCenter)
        left += (area.width() - width) / 2;
    const int top = area.top() + (area.height() - face.height) / 2;
    if (plain) {
        face.run.setRawData(glyphs_.data(), places_.data(), count_);
        painter.drawGlyphRun(QPointF(left, top + face.ascent), face.run);
    } else {
        if (current_ != number) {
            painter.setFont(face.font);
            current_ = number;
        }
        painter.drawStaticText(left, top, line->text);
    }
    // By hand: a static text draws its own underline off its line, and glyphs have none.
    if ((look & underlinedFont) != 0)
        painter.fillRect(left, top + face.ascent + 1, width, 1, painter.pen().color());
}

} // namespace partwright::grid
