#include "grid/cell_source.h"

namespace partwright::grid {

const CellStyle* CellSource::style(int, int) const {
    return nullptr;
}

QString CellSource::markText(int, int) const {
    return {};
}

QString CellSource::tip(int, int) const {
    return {};
}

QString CellSource::headerTip(int) const {
    return {};
}

} // namespace partwright::grid
