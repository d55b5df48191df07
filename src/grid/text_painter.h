#pragma once

// Paints short texts fast. Laying out a text costs far more than drawing it, so texts of plain
// characters are put together from glyphs that were looked up once, and all others are laid out
// once for their width and kept.

#include <QCache>
#include <QFont>
#include <QGlyphRun>
#include <QRawFont>
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
    [[nodiscard]] int lineHeight() const { return faces_[boldFont].height; }
    /// Width of the text on one line, without shortening. An underline adds nothing.
    [[nodiscard]] int widthOf(const QString& text, quint8 look) const;

    /// Call at the start of each paint pass. On paper every text goes out as text, not as glyphs.
    void begin(bool paper);
    /// Line breaks show as blanks; a text too wide ends in an ellipsis.
    void draw(QPainter& painter, const QRect& area, const QString& text, quint8 look,
              Qt::AlignmentFlag align);

private:
    static constexpr char16_t firstPlain = 32;
    static constexpr char16_t endPlain = 127;
    static constexpr std::size_t plainCount = endPlain - firstPlain;
    static constexpr std::size_t longestPlain = 200;

    /// One of plain, bold, italic and bold italic.
    struct Face {
        QFont font;
        int height = 0;
        int ascent = 0;
        /// The font has a glyph for every plain character and the ellipsis.
        bool complete = false;
        /// The last one is the ellipsis.
        std::array<quint32, plainCount + 1> glyphs{};
        std::array<double, plainCount + 1> advances{};
        QGlyphRun run;
    };
    struct Key {
        QString text;
        int width;
        quint8 face;
        friend bool operator==(const Key&, const Key&) = default;
        friend size_t qHash(const Key& key, size_t seed = 0) {
            return qHashMulti(seed, key.text, key.width, key.face);
        }
    };
    struct Line {
        QStaticText text;
        int width = 0;
    };

    static void prepare(Face& face);
    /// Puts the text into `glyphs_` and `places_`; false when it is not plain.
    bool setPlain(const Face& face, const QString& text, int room);
    const Line& lineFor(const Key& key);

    std::array<Face, 4> faces_;
    QCache<Key, Line> lines_;
    std::array<quint32, longestPlain> glyphs_{};
    std::array<QPointF, longestPlain> places_;
    int count_ = 0;
    double width_ = 0;
    int current_ = -1;
    bool paper_ = false;
};

} // namespace partwright::grid
