#include "grid/cell_style.h"

namespace partwright::grid {

namespace {

template <typename T>
void take(const std::optional<T>& from, T& to) {
    if (from)
        to = *from;
}

size_t hashOf(const CellStyle& style) {
    return qHashMulti(0, static_cast<int>(style.kind), style.readOnly, style.enabled, style.bold,
                      style.italic, static_cast<int>(style.align), style.choices,
                      style.textColor.rgba(), style.background.rgba());
}

} // namespace

bool StyleChange::touchesStyle() const {
    return kind || readOnly || enabled || bold || italic || align || choices || textColor ||
           background;
}

void StyleChange::apply(CellStyle& style) const {
    take(kind, style.kind);
    take(readOnly, style.readOnly);
    take(enabled, style.enabled);
    take(bold, style.bold);
    take(italic, style.italic);
    take(align, style.align);
    take(choices, style.choices);
    take(textColor, style.textColor);
    take(background, style.background);
}

StyleTable::StyleTable() {
    styles_.emplace_back();
}

StyleId StyleTable::find(const CellStyle& style) {
    if (style == styles_.front())
        return 0;
    const size_t hash = hashOf(style);
    for (auto it = index_.constFind(hash); it != index_.cend() && it.key() == hash; ++it)
        if (styles_[it.value()] == style)
            return it.value();
    const auto id = static_cast<StyleId>(styles_.size());
    styles_.push_back(style);
    index_.insert(hash, id);
    return id;
}

} // namespace partwright::grid
