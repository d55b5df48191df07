#pragma once

// Paints short texts fast. Laying out a text costs far more than drawing it, so each text is laid
// out and shortened once for its width and kept; a page that is painted again only draws.

#include <QCache>
#include <QFont>
#include <QFontMetrics>
#include <QStaticText>
#include <QString>
#include <array>

class QPainter;

namespace partwright::grid {

/// A sum of these is the look of a text.
enum FontVariant : quint8 { plainFont = 0, boldFont = 1, italicFont = 2, underlinedFont = 4 };

class TextPainter {
public:
    TextPainter();

    /// Forgets all texts when the font differs from the one before.
    void setFont(const QFont& font);
    [[nodiscard]] int lineHeight() const { return QFontMetrics(fonts_[boldFont]).height(); }
    /// Width of the text on one line, without shortening. An underline adds nothing.
    [[nodiscard]] int widthOf(const QString& text, quint8 variant) const;

    /// Call at the start of each paint pass.
    void begin();
    /// Line breaks show as blanks; a text too wide ends in an ellipsis.
    void draw(QPainter& painter, const QRect& area, const QString& text, quint8 look,
              Qt::AlignmentFlag align);

private:
    struct Key {
        QString text;
        int width;
        quint8 variant;
        friend bool operator==(const Key&, const Key&) = default;
        friend size_t qHash(const Key& key, size_t seed = 0) {
            return qHashMulti(seed, key.text, key.width, key.variant);
        }
    };
    struct Line {
        QStaticText text;
        int width = 0;
    };

    const Line& lineFor(const Key& key);

    std::array<QFont, 4> fonts_;
    std::array<int, 4> heights_{};
    QCache<Key, Line> lines_;
    int current_ = -1;
};

} // namespace partwright::grid
