#pragma once

// How a cell looks and behaves. Styles are shared: a cell keeps a small number, and the table below
// keeps each different style once, however many cells wear it.
//
//     grid.SetStyleRange(CellRange::cell(3, 6), {.value = QStringLiteral("Zener"),
//                                                .kind = CellKind::DropDown,
//                                                .choices = list});
//
// A StyleChange names only what is to change; everything else of the cell stays.

#include <QColor>
#include <QHash>
#include <QString>
#include <deque>
#include <optional>

namespace partwright::grid {

enum class CellKind {
    Text,
    /// Takes one of the entries of `choices`.
    DropDown,
    /// Text shown as a link; opening it is the owner's affair (doubleClick).
    Link,
    /// Text "1" is checked, anything else is not. An empty check box cell that is disabled shows
    /// nothing.
    CheckBox,
};

struct CellStyle {
    CellKind kind = CellKind::Text;
    /// May be the current cell and be copied, but takes no text from the user.
    bool readOnly = false;
    /// Disabled means read-only and shown as not applicable.
    bool enabled = true;
    bool bold = false;
    bool italic = false;
    Qt::AlignmentFlag align = Qt::AlignLeft;
    /// Entries separated by line feeds; an entry may have a second text behind a tab.
    QString choices;
    /// Invalid colours are those of the palette.
    QColor textColor;
    QColor background;

    friend bool operator==(const CellStyle&, const CellStyle&) = default;
};

struct StyleChange {
    std::optional<QString> value = std::nullopt;
    std::optional<CellKind> kind = std::nullopt;
    std::optional<bool> readOnly = std::nullopt;
    std::optional<bool> enabled = std::nullopt;
    std::optional<bool> bold = std::nullopt;
    std::optional<bool> italic = std::nullopt;
    std::optional<Qt::AlignmentFlag> align = std::nullopt;
    std::optional<QString> choices = std::nullopt;
    std::optional<QColor> textColor = std::nullopt;
    std::optional<QColor> background = std::nullopt;

    /// More than the value is named.
    [[nodiscard]] bool touchesStyle() const;
    void apply(CellStyle& style) const;
};

/// Number of a style in its table. Number 0 is the plain style.
using StyleId = quint32;

class StyleTable {
public:
    StyleTable();

    /// It stays where it is.
    [[nodiscard]] const CellStyle& at(StyleId id) const { return styles_[id]; }
    [[nodiscard]] StyleId find(const CellStyle& style);
    [[nodiscard]] std::size_t size() const { return styles_.size(); }

private:
    std::deque<CellStyle> styles_;
    QMultiHash<size_t, StyleId> index_;
};

} // namespace partwright::grid
