#include "grid/grid_painter.h"

#include <QPainter>
#include <algorithm>

namespace partwright::grid {

namespace {

constexpr int margin = 4;
constexpr int handleGap = 2;
constexpr int cornerSize = 6;

QColor blend(const QColor& a, const QColor& b, double share) {
    const auto mix = [&](int from, int to) {
        return static_cast<int>(from + (to - from) * share + 0.5);
    };
    return QColor(mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue()));
}

double luminance(const QColor& color) {
    return 0.299 * color.redF() + 0.587 * color.greenF() + 0.114 * color.blueF();
}

quint8 variantOf(const CellStyle& look) {
    int variant = plainFont;
    if (look.bold)
        variant |= boldFont;
    if (look.italic)
        variant |= italicFont;
    if (look.kind == CellKind::Link)
        variant |= underlinedFont;
    return static_cast<quint8>(variant);
}

int markSize(int height) {
    return std::max(6, height * 2 / 5);
}

void paintArrow(QPainter& painter, const QRectF& area, bool up, const QColor& color, bool filled) {
    const QPointF tip(area.center().x(), up ? area.top() : area.bottom());
    const qreal base = up ? area.bottom() : area.top();
    const QPointF points[] = {{area.left(), base}, tip, {area.right(), base}};
    painter.setRenderHint(QPainter::Antialiasing, true);
    if (filled) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawPolygon(points, 3);
        painter.setBrush(Qt::NoBrush);
    } else {
        painter.setPen(QPen(color, 1.4));
        painter.drawPolyline(points, 3);
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
}

/// A triangle with a stroke and a dot.
void paintSign(QPainter& painter, const QRectF& area, const QColor& color, const QColor& inner) {
    const QPointF triangle[] = {
        {area.center().x(), area.top()}, area.bottomRight(), area.bottomLeft()};
    const qreal x = area.center().x();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(color, 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(color);
    painter.drawPolygon(triangle, 3);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(inner, std::max(1.2, area.width() / 9), Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(x, area.top() + area.height() * 0.38),
                     QPointF(x, area.top() + area.height() * 0.64));
    painter.drawPoint(QPointF(x, area.top() + area.height() * 0.86));
    painter.setRenderHint(QPainter::Antialiasing, false);
}

void paintCheckBox(QPainter& painter, const QRect& area, bool checked, const QColor& color) {
    const int side = std::min(area.height() - 6, area.width() - 4);
    const QRectF box(area.center().x() - side / 2 + 0.5, area.center().y() - side / 2 + 0.5, side,
                     side);
    painter.setPen(QPen(color, 1.2));
    painter.drawRect(box);
    if (!checked)
        return;
    const QPointF tick[] = {{box.left() + side * 0.22, box.top() + side * 0.55},
                            {box.left() + side * 0.42, box.top() + side * 0.76},
                            {box.left() + side * 0.80, box.top() + side * 0.26}};
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(color, std::max(1.6, side / 7.0)));
    painter.drawPolyline(tick, 3);
    painter.setRenderHint(QPainter::Antialiasing, false);
}

} // namespace

GridPainter::GridPainter(const CGridCore& grid, const GridGeometry& geometry)
    : grid_(grid), geometry_(geometry) {}

void GridPainter::setLook(const QFont& font, const QPalette& palette) {
    texts_.setFont(font);
    palette_ = palette;
    const QColor base = palette.color(QPalette::Base);
    const QColor text = palette.color(QPalette::Text);
    const QColor button = palette.color(QPalette::Button);
    const QColor highlight = palette.color(QPalette::Highlight);
    line_ = blend(base, text, 0.22);
    header_ = blend(button, palette.color(QPalette::ButtonText), 0.05);
    headerMarked_ = blend(header_, highlight, 0.45);
    disabledBack_ = blend(base, text, 0.08);
    selected_ = highlight;
    selected_.setAlpha(64);
    alarm_ = luminance(base) > 0.5 ? QColor(190, 0, 0) : QColor(255, 110, 100);
}

int GridPainter::widthNeeded(int row, int col) const {
    const CellStyle& look = grid_.cellStyle(row, col);
    const int one = markSize(geometry_.rowHeight()) + margin;
    int signs = row == 0 || look.kind == CellKind::DropDown ? one : 0;
    signs += grid_.markText(row, col).isEmpty() ? 0 : one;
    return texts_.widthOf(grid_.text(row, col), variantOf(look)) + 2 * margin + signs + 1;
}

QColor GridPainter::textColorOf(const CellStyle& look) const {
    if (look.textColor.isValid())
        return look.textColor;
    if (look.background.isValid())
        return luminance(look.background) > 0.5 ? QColor(Qt::black) : QColor(Qt::white);
    if (!look.enabled)
        return blend(palette_.color(QPalette::Base), palette_.color(QPalette::Text), 0.62);
    return palette_.color(look.kind == CellKind::Link ? QPalette::Link : QPalette::Text);
}

void GridPainter::setPen(QPainter& painter, const QColor& color) {
    if (penColor_ == color)
        return;
    penColor_ = color;
    painter.setPen(color);
}

void GridPainter::paintText(QPainter& painter, QRect area, int row, int col,
                            const CellStyle& look) {
    const QString text = grid_.text(row, col);
    const QColor color = textColorOf(look);
    const QRect cell = area;
    if (look.kind == CellKind::CheckBox) {
        if (look.enabled || !text.isEmpty())
            paintCheckBox(painter, area, text == QLatin1String("1"), color);
        penColor_ = QColor();
        return;
    }
    area.adjust(margin, 0, -margin, 0);
    const int side = markSize(area.height());
    if (look.kind == CellKind::DropDown && look.enabled && !look.readOnly && !onPaper_) {
        const QRectF mark(area.right() - side + 1, area.center().y() - side / 4.0, side,
                          side / 2.0);
        paintArrow(painter, mark, false, blend(palette_.color(QPalette::Base), color, 0.6), false);
        penColor_ = QColor();
        area.setRight(area.right() - side - margin);
    }
    if (text.isEmpty())
        return;
    if (!grid_.markText(row, col).isEmpty()) {
        paintMark(painter, cell, {area.right() - side, area.center().y() - side / 2, side, side});
        area.setRight(area.right() - side - margin);
    }
    setPen(painter, color);
    texts_.draw(painter, area, text, variantOf(look), look.align);
}

void GridPainter::paintMark(QPainter& painter, const QRect& cell, const QRect& sign) {
    const QPoint corner[] = {cell.topLeft(), cell.topLeft() + QPoint(cornerSize, 0),
                             cell.topLeft() + QPoint(0, cornerSize)};
    painter.setPen(Qt::NoPen);
    painter.setBrush(alarm_);
    painter.drawPolygon(corner, 3);
    paintSign(painter, sign, alarm_, palette_.color(QPalette::Base));
    penColor_ = QColor();
}

void GridPainter::paintCell(QPainter& painter, const QRect& area, int row, int col) {
    const CellStyle& look = grid_.cellStyle(row, col);
    if (look.background.isValid())
        painter.fillRect(area, look.background);
    else if (row == 0 || col == 0)
        painter.fillRect(area, header_);
    else if (!look.enabled)
        painter.fillRect(area, disabledBack_);
    penColor_ = QColor();
    paintText(painter, area, row, col, look);
}

void GridPainter::paint(QPainter& painter, const QRect& dirty, const PaintState& state) {
    texts_.begin(false);
    penColor_ = QColor();
    painter.setClipRect(dirty);
    painter.fillRect(dirty, palette_.brush(QPalette::Base));
    const QRect cells = dirty.intersected({geometry_.rowHeaderWidth(), geometry_.headerHeight(),
                                           dirty.right() + 1, dirty.bottom() + 1});
    const int edge = geometry_.frozenWidth();
    paintPane(painter, cells.intersected({0, 0, edge, dirty.bottom() + 1}), true, state);
    paintPane(painter, cells.intersected({edge, 0, dirty.right() + 1, dirty.bottom() + 1}), false,
              state);
    if (dirty.left() < geometry_.rowHeaderWidth() && dirty.bottom() >= geometry_.headerHeight()) {
        painter.setClipRect(
            dirty.adjusted(0, std::max(0, geometry_.headerHeight() - dirty.top()), 0, 0));
        paintRowHeaders(painter, dirty);
    }
    if (dirty.top() < geometry_.headerHeight()) {
        painter.setClipRect(dirty);
        paintHeader(painter, dirty);
    }
}

void GridPainter::paintPane(QPainter& painter, const QRect& dirty, bool frozen,
                            const PaintState& state) {
    if (dirty.isEmpty())
        return;
    painter.setClipRect(dirty);
    paintCells(painter, dirty);
    paintSelection(painter, frozen, state);
    if (frozen && geometry_.offset().x() > 0)
        painter.fillRect(QRect(geometry_.frozenWidth() - 2, dirty.top(), 2, dirty.height()),
                         blend(line_, palette_.color(QPalette::Text), 0.4));
}

void GridPainter::paintCells(QPainter& painter, const QRect& dirty) {
    const GridRows& rows = geometry_.rows();
    const int first = std::max(0, geometry_.positionAt(dirty.top()));
    const int last = std::min(rows.shownCount() - 1, geometry_.positionAt(dirty.bottom()));
    const int firstCol = std::max(1, geometry_.colAt(dirty.left()));
    const int atRight = geometry_.colAt(dirty.right());
    const int lastCol = atRight < 0 ? geometry_.colCount() : atRight;
    if (geometry_.colAt(dirty.left()) < 0 || last < first)
        return;
    const int height = geometry_.rowHeight();
    for (int col = firstCol; col <= lastCol; ++col) {
        if (geometry_.widthOf(col) == 0)
            continue;
        QRect cell = geometry_.cellRect(0, col);
        for (int position = first; position <= last; ++position) {
            const int row = rows.shownRow(position);
            cell.setRect(cell.left(), geometry_.topOf(position), cell.width(), height);
            const CellStyle& look = grid_.cellStyle(row, col);
            if (look.background.isValid())
                painter.fillRect(cell, look.background);
            else if (!look.enabled)
                painter.fillRect(cell, disabledBack_);
            paintText(painter, cell.adjusted(0, 0, -1, -1), row, col, look);
        }
    }
    QRect area = dirty;
    area.setTop(geometry_.topOf(first));
    area.setBottom(geometry_.topOf(last) + height - 1);
    paintLines(painter, area, firstCol, lastCol);
}

void GridPainter::paintLines(QPainter& painter, const QRect& area, int firstCol, int lastCol) {
    const int height = geometry_.rowHeight();
    const int right = std::min(area.right(), geometry_.contentRight());
    std::vector<QRect> lines;
    for (int y = area.top() + height - 1; y <= area.bottom(); y += height)
        lines.emplace_back(area.left(), y, right - area.left() + 1, 1);
    for (int col = firstCol; col <= lastCol; ++col)
        if (geometry_.widthOf(col) > 0)
            lines.emplace_back(geometry_.cellRect(0, col).right(), area.top(), 1, area.height());
    painter.setPen(Qt::NoPen);
    painter.setBrush(line_);
    painter.drawRects(lines.data(), static_cast<int>(lines.size()));
    painter.setBrush(Qt::NoBrush);
    penColor_ = QColor();
}

bool GridPainter::isIn(const CellRange& range, bool frozen) const {
    return frozen ? geometry_.isFrozen(std::max(range.left, 1))
                  : range.right > geometry_.frozenCols();
}

void GridPainter::paintSelection(QPainter& painter, bool frozen, const PaintState& state) {
    const QColor highlight = palette_.color(QPalette::Highlight);
    for (const CellRange& range : grid_.selection()) {
        const QRect area = geometry_.rangeRect(range);
        if (area.isEmpty() || !isIn(range, frozen))
            continue;
        painter.fillRect(area, selected_);
        painter.setPen(highlight);
        painter.drawRect(area.adjusted(-1, -1, -1, -1));
    }
    paintCurrent(painter, frozen, state);
    const auto dashed = [&](const CellRange& range, const QColor& between) {
        const QRect area = geometry_.rangeRect(range).adjusted(0, 0, -1, -1);
        if (area.isEmpty() || !isIn(range, frozen))
            return;
        painter.setPen(QPen(between, 2));
        painter.drawRect(area);
        painter.setPen(QPen(palette_.color(QPalette::Text), 2, Qt::DashLine));
        painter.drawRect(area);
    };
    for (const CellRange& range : state.copied)
        dashed(range, palette_.color(QPalette::Base));
    if (!state.fillPreview.empty())
        dashed(state.fillPreview, Qt::transparent);
    if (!state.fillHandle.isEmpty()) {
        painter.fillRect(state.fillHandle.adjusted(-1, -1, 1, 1), palette_.brush(QPalette::Base));
        painter.fillRect(state.fillHandle, highlight);
    }
    painter.setPen(Qt::SolidLine);
    penColor_ = QColor();
}

void GridPainter::paintCurrent(QPainter& painter, bool frozen, const PaintState& state) {
    const auto current = grid_.currentCell();
    if (!current || state.edited == current || geometry_.isFrozen(current->col) != frozen)
        return;
    const QRect cell = geometry_.cellRect(current->row, current->col);
    if (cell.isEmpty())
        return;
    const QColor faint = blend(palette_.color(QPalette::Base), palette_.color(QPalette::Text), 0.5);
    painter.setPen(QPen(state.focused ? palette_.color(QPalette::Highlight) : faint, 2,
                        Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(cell.adjusted(0, 0, -1, -1));
}

bool GridPainter::columnMarked(int col) const {
    if (const auto current = grid_.currentCell(); current && current->col == col)
        return true;
    return std::any_of(grid_.selection().begin(), grid_.selection().end(),
                       [&](const CellRange& range) {
                           return !range.wholeRows() && col >= range.left && col <= range.right;
                       });
}

void GridPainter::paintHeaderCell(QPainter& painter, const QRect& area, int row, int col,
                                  bool marked) {
    const CellStyle& look = grid_.cellStyle(row, col);
    const QColor back = look.background.isValid() ? look.background : header_;
    painter.fillRect(area, marked ? blend(back, headerMarked_, 0.8) : back);
    painter.fillRect(QRect(area.right(), area.top(), 1, area.height()), line_);
    painter.fillRect(QRect(area.left(), area.bottom(), area.width(), 1), line_);
    QRect inner = area.adjusted(margin, 0, -margin - 1, -1);
    QColor color = palette_.color(QPalette::ButtonText);
    if (look.textColor.isValid() || look.background.isValid())
        color = textColorOf(look);
    if (row == 0 && col > 0 && grid_.sortedCol() == col) {
        const auto flag = grid_.sortFlags().find(col);
        const bool up = flag == grid_.sortFlags().end() || flag->second;
        const int side = markSize(geometry_.rowHeight());
        const QRectF mark(inner.right() - side + handleGap, inner.center().y() - side / 4.0, side,
                          side / 2.0);
        paintArrow(painter, mark, up, color, true);
        inner.setRight(inner.right() - side - handleGap);
    }
    painter.setPen(color);
    const auto variant = static_cast<quint8>(variantOf(look) | (marked && col == 0 ? boldFont : 0));
    texts_.draw(painter, inner, grid_.text(row, col), variant,
                col == 0 ? Qt::AlignHCenter : look.align);
    penColor_ = QColor();
}

void GridPainter::paintRowHeaders(QPainter& painter, const QRect& dirty) {
    const GridRows& rows = geometry_.rows();
    const int first =
        std::max(0, geometry_.positionAt(std::max(dirty.top(), geometry_.headerHeight())));
    const int last = std::min(rows.shownCount() - 1, geometry_.positionAt(dirty.bottom()));
    const auto current = grid_.currentCell();
    for (int position = first; position <= last; ++position) {
        const int row = rows.shownRow(position);
        const QRect area(0, geometry_.topOf(position), geometry_.rowHeaderWidth(),
                         geometry_.rowHeight());
        const bool marked = grid_.isRowSelected(row) || (current && current->row == row);
        paintHeaderCell(painter, area, row, 0, marked);
    }
}

void GridPainter::paintHeader(QPainter& painter, const QRect& dirty) {
    const int edge = geometry_.frozenWidth();
    const int last = geometry_.colAt(dirty.right());
    if (dirty.right() >= edge) {
        painter.setClipRect(dirty.intersected({edge, 0, dirty.right() + 1, dirty.bottom() + 1}));
        paintHeaderCells(painter, geometry_.colAt(std::max(dirty.left(), edge)),
                         last < 0 ? geometry_.colCount() : last);
    }
    painter.setClipRect(dirty);
    paintHeaderCells(painter, 1, geometry_.frozenCols());
    if (geometry_.rowHeaderWidth() > 0)
        paintHeaderCell(painter, geometry_.cellRect(0, 0), 0, 0, false);
}

void GridPainter::paintHeaderCells(QPainter& painter, int first, int last) {
    for (int col = std::max(first, 1); first >= 0 && col <= last; ++col)
        if (const QRect area = geometry_.cellRect(0, col); !area.isEmpty())
            paintHeaderCell(painter, area, 0, col, columnMarked(col));
}

} // namespace partwright::grid
