#include "grid/grid_window.h"

#include "grid/grid_accessible.h"
#include "grid/grid_print.h"

#include <QAccessible>
#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QScrollBar>
#include <QTimerEvent>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace partwright::grid {

namespace {

constexpr double smallestZoom = 0.5;
constexpr double largestZoom = 3;
constexpr double zoomStep = 1.1;
/// Frame and fill handle reach beyond their cell.
constexpr int frameReach = 8;
constexpr int handleSize = 7;
constexpr int widestFit = 1200;
constexpr int hintRows = 12;
constexpr int hintWidth = 640;

int scaled(int size, double zoom) {
    return static_cast<int>(std::lround(size * zoom));
}

} // namespace

CGridWnd::CGridWnd(QWidget* parent)
    : QAbstractScrollArea(parent), geometry_(gridRows()), painter_(*this, geometry_) {
    installGridAccessibility();
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_InputMethodEnabled);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setMouseTracking(true);
    relayout();
}

CGridWnd::~CGridWnd() = default;

QString CGridWnd::controlText(int row, int col) const {
    return editedCell() == CellPos{row, col} ? edit_.editor()->text() : text(row, col);
}

bool CGridWnd::escape() {
    if (isEditing()) {
        cancelEdit();
        return true;
    }
    if (mouse_.endDrag())
        return true;
    if (!copied_.empty()) {
        endCopied();
        return true;
    }
    const auto isOne = [](const CellRange& range) {
        return range.top == range.bottom && range.left == range.right;
    };
    if (selection().empty() || (selection().size() == 1 && isOne(selection().front())))
        return false;
    clearSelection();
    return true;
}

QSize CGridWnd::sizeHint() const {
    return {hintWidth, geometry_.headerHeight() + hintRows * geometry_.rowHeight()};
}

QFont CGridWnd::zoomedFont() const {
    QFont result = font();
    if (result.pointSizeF() > 0)
        result.setPointSizeF(result.pointSizeF() * zoom_);
    else
        result.setPixelSize(std::max(1, scaled(result.pixelSize(), zoom_)));
    return result;
}

void CGridWnd::relayout() {
    painter_.setLook(zoomedFont(), palette());
    const int line = painter_.texts().lineHeight();
    geometry_.setHeights(std::max(scaled(rowHeight(), zoom_), line + 8),
                         std::max(scaled(rowHeight(), zoom_), line + 4));
    std::vector<int> widths;
    widths.reserve(static_cast<std::size_t>(colCount()) + 1);
    for (int col = 0; col <= colCount(); ++col)
        widths.push_back(isColVisible(col) ? scaled(colWidth(col), zoom_) : 0);
    if (widths[0] > 0)
        widths[0] = std::max(widths[0],
                             painter_.texts().widthOf(QString::number(rowCount()), boldFont) + 10);
    geometry_.setColumns(widths);
    updateScrollBars();
    edit_.place();
    viewport()->update();
}

void CGridWnd::setFrozenCols(int cols) {
    frozenCols_ = cols;
    relayout();
}

void CGridWnd::updateScrollBars() {
    geometry_.setFrozen(frozenCols_);
    if (geometry_.frozenWidth() > viewport()->width() / 2)
        geometry_.setFrozen(0);
    const QSize content = geometry_.contentSize();
    const QSize page(viewport()->width() - geometry_.frozenWidth(),
                     viewport()->height() - geometry_.headerHeight());
    verticalScrollBar()->setRange(0, std::max(0, content.height() - page.height()));
    verticalScrollBar()->setPageStep(std::max(1, page.height()));
    verticalScrollBar()->setSingleStep(geometry_.rowHeight());
    horizontalScrollBar()->setRange(0, std::max(0, content.width() - page.width()));
    horizontalScrollBar()->setPageStep(std::max(1, page.width()));
    horizontalScrollBar()->setSingleStep(geometry_.rowHeight());
    geometry_.setOffset({horizontalScrollBar()->value(), verticalScrollBar()->value()});
}

void CGridWnd::cellsChanged(const CellRange& range) {
    CGridCore::cellsChanged(range);
    if (redrawLocked())
        return;
    if (range.left == 0)
        viewport()->update(0, 0, geometry_.rowHeaderWidth(), viewport()->height());
    if (range.top == 0)
        viewport()->update(0, 0, viewport()->width(), geometry_.headerHeight());
    const QRect area = geometry_.rangeRect(clipped(range)).adjusted(-2, -2, handleSize, handleSize);
    if (area.intersects(viewport()->rect()))
        viewport()->update(area);
}

void CGridWnd::layoutChanged() {
    CGridCore::layoutChanged();
    if (!redrawLocked())
        relayout();
}

void CGridWnd::structureChanged() {
    lead_.reset();
    mouse_.endDrag();
    edit_.followRow();
    contentChanged();
    layoutChanged();
    if (QAccessible::isActive()) {
        QAccessibleTableModelChangeEvent event(this, QAccessibleTableModelChangeEvent::ModelReset);
        QAccessible::updateAccessibility(&event);
    }
}

void CGridWnd::contentChanged() {
    endCopied();
}

void CGridWnd::endCopied() {
    if (copied_.empty())
        return;
    copied_.clear();
    viewport()->update();
}

void CGridWnd::scrollTo(int row, int col) {
    if (redrawLocked())
        relayout();
    const QRect cell = geometry_.cellRect(row, col);
    if (cell.isEmpty())
        return;
    const auto reveal = [](QScrollBar* bar, int low, int high, int from, int to) {
        if (low < from || high - low > to - from)
            bar->setValue(bar->value() + low - from);
        else if (high > to)
            bar->setValue(bar->value() + high - to);
    };
    reveal(verticalScrollBar(), cell.top(), cell.bottom() + 1, geometry_.headerHeight(),
           viewport()->height());
    if (!geometry_.isFrozen(col))
        reveal(horizontalScrollBar(), cell.left(), cell.right() + 1, geometry_.frozenWidth(),
               viewport()->width());
}

void CGridWnd::moveTo(CellPos pos, bool extend) {
    if (extend && currentCell()) {
        if (leaveCell())
            extendTo(pos);
        return;
    }
    const RowKey key = rowKey(pos.row);
    if (setCurrentCell(pos.row, pos.col) && rowOfKey(key) > 0)
        clearSelection();
}

void CGridWnd::extendTo(CellPos pos) {
    lead_ = pos;
    scrollTo(pos.row, pos.col);
    selectRange(CellRange::between(*currentCell(), pos));
}

void CGridWnd::selectAll() {
    if (leaveCell() && rowCount() > 0)
        selectRows(1, rowCount());
}

void CGridWnd::toggleCheckBox(CellPos pos) {
    if (!isEditable(pos.row, pos.col) || cellStyle(pos.row, pos.col).kind != CellKind::CheckBox)
        return;
    const bool checked = text(pos.row, pos.col) == QLatin1String("1");
    commitText(pos.row, pos.col, checked ? QStringLiteral("0") : QStringLiteral("1"));
}

void CGridWnd::updateCurrentArea(CellPos pos) {
    viewport()->update(geometry_.cellRect(pos.row, pos.col)
                           .adjusted(-frameReach, -frameReach, frameReach, frameReach));
    viewport()->update(geometry_.cellRect(pos.row, 0));
    viewport()->update(geometry_.cellRect(0, pos.col));
}

/// The headers show what is selected, and the fill handle comes and goes.
void CGridWnd::selectionMoved() {
    viewport()->update(0, 0, geometry_.rowHeaderWidth(), viewport()->height());
    viewport()->update(0, 0, viewport()->width(), geometry_.headerHeight());
    if (const auto current = currentCell())
        updateCurrentArea(*current);
    updateHandleArea();
}

void CGridWnd::updateHandleArea() {
    if (selection().empty())
        return;
    const QRect area = geometry_.rangeRect(selection().back());
    viewport()->update(QRect(area.right(), area.bottom(), 1, 1)
                           .adjusted(-frameReach, -frameReach, frameReach, frameReach));
}

void CGridWnd::currentMovedFrom(std::optional<CellPos> before) {
    lead_.reset();
    updateHandleArea();
    if (before)
        updateCurrentArea(*before);
    if (const auto now = currentCell()) {
        updateCurrentArea(*now);
        announceCurrentCell(*this, *now);
    }
}

PaintState CGridWnd::paintState() const {
    PaintState state;
    state.focused = hasFocus() || isEditing();
    state.edited = editedCell();
    state.fillHandle = fillHandleRect();
    state.fillPreview = mouse_.fillPreview();
    state.copied = copied_;
    return state;
}

void CGridWnd::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    const PaintState state = paintState();
    for (const QRect& area : event->region())
        painter_.paint(painter, area, state);
}

void CGridWnd::resizeEvent(QResizeEvent*) {
    updateScrollBars();
    edit_.place();
}

void CGridWnd::scrollContentsBy(int dx, int dy) {
    geometry_.setOffset({horizontalScrollBar()->value(), verticalScrollBar()->value()});
    const QRect all = viewport()->rect();
    if (isEditing()) {
        edit_.place();
        viewport()->update();
    } else if (dx == 0) {
        viewport()->scroll(0, dy, all.adjusted(0, geometry_.headerHeight(), 0, 0));
    } else if (dy == 0) {
        viewport()->scroll(dx, 0, all.adjusted(geometry_.frozenWidth(), 0, 0, 0));
        if (frozenCols_ > 0) // its edge says whether something is scrolled away
            viewport()->update(geometry_.frozenWidth() - handleSize, 0, 2 * handleSize,
                               viewport()->height());
    } else {
        viewport()->update();
    }
}

void CGridWnd::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange ||
        event->type() == QEvent::StyleChange)
        relayout();
}

void CGridWnd::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    if (isEditing())
        edit_.editor()->setFocus(event->reason());
    if (const auto current = currentCell()) {
        updateCurrentArea(*current);
        announceCurrentCell(*this, *current);
    }
}

void CGridWnd::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    if (const auto current = currentCell())
        updateCurrentArea(*current);
}

void CGridWnd::setZoom(double zoom) {
    const double next = std::clamp(zoom, smallestZoom, largestZoom);
    if (next == zoom_)
        return;
    const int top = geometry_.positionAt(geometry_.headerHeight());
    zoom_ = next;
    relayout();
    verticalScrollBar()->setValue(top * geometry_.rowHeight());
}

void CGridWnd::wheelEvent(QWheelEvent* event) {
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    const int turned = event->angleDelta().y();
    if (turned != 0)
        setZoom(turned > 0 ? zoom_ * zoomStep : zoom_ / zoomStep);
    event->accept();
}

void CGridWnd::fitColWidth(int col) {
    int widest = 0;
    qsizetype longest = 0;
    for (int row = 0; row <= rowCount(); ++row) {
        // Measuring costs most; a text a quarter as long as another is hardly ever wider.
        const qsizetype length = text(row, col).size();
        if (widest > 0 && length * 4 < longest)
            continue;
        longest = std::max(longest, length);
        widest = std::max(widest, painter_.widthNeeded(row, col));
    }
    SetColWidth(col, col, static_cast<int>(std::ceil(std::min(widest, widestFit) / zoom_)));
    colResized(col);
}

CellRange CGridWnd::fillSource() const {
    const auto current = currentCell();
    if (!current || isEditing())
        return {};
    if (selection().empty())
        return CellRange::cell(current->row, current->col);
    const CellRange& range = selection().back();
    if (selection().size() > 1 || range.wholeRows() || range.top != range.bottom ||
        !range.contains(current->row, current->col))
        return {};
    return range;
}

QRect CGridWnd::fillHandleRect() const {
    const CellRange source = fillSource();
    if (source.empty() || rowCount() < 2 || !isEditable(source.top, source.left))
        return {};
    const QRect area = geometry_.rangeRect(source);
    if (area.isEmpty() || geometry_.cellRect(source.top, source.right).isEmpty())
        return {};
    return {area.right() - handleSize / 2, area.bottom() - handleSize / 2, handleSize, handleSize};
}

std::optional<CellPos> CGridWnd::cellAt(QPoint place) const {
    const CellPos pos{geometry_.rowAt(place.y()), geometry_.colAt(place.x())};
    return pos.row < 0 || pos.col < 0 ? std::nullopt : std::optional(pos);
}

/// The text where the cell is too narrow for it, why the cell bears a mark, and what the owner
/// says.
bool CGridWnd::showToolTip(QPoint place, QPoint global) {
    const auto pos = cellAt(place);
    QStringList paragraphs;
    if (pos && pos->col > 0) {
        constexpr qsizetype longestTip = 1000;
        if (cellStyle(pos->row, pos->col).kind != CellKind::CheckBox &&
            painter_.widthNeeded(pos->row, pos->col) > geometry_.widthOf(pos->col))
            paragraphs << text(pos->row, pos->col).left(longestTip);
        paragraphs << markText(pos->row, pos->col) << tip(pos->row, pos->col);
        paragraphs.removeAll(QString());
    }
    if (paragraphs.isEmpty()) {
        QToolTip::hideText();
        return false;
    }
    QString html;
    for (const QString& paragraph : std::as_const(paragraphs))
        html += QStringLiteral("<p>%1</p>")
                    .arg(paragraph.toHtmlEscaped().replace(u'\n', QLatin1String("<br>")));
    QToolTip::showText(global, html, viewport(), geometry_.cellRect(pos->row, pos->col));
    return true;
}

bool CGridWnd::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        if (!showToolTip(help->pos(), help->globalPos()))
            event->ignore();
        return true;
    }
    return QAbstractScrollArea::viewportEvent(event);
}

void CGridWnd::copy() {
    QGuiApplication::clipboard()->setText(selectedText());
    endCopied();
    if (!selectedRows().empty() && selection().back().wholeRows())
        copied_ = selection();
    else if (!selection().empty())
        copied_ = {selection().back()};
    else if (const auto current = currentCell())
        copied_ = {CellRange::cell(current->row, current->col)};
    viewport()->update();
}

void CGridWnd::paste() {
    pasteText(QGuiApplication::clipboard()->text());
}

void CGridWnd::timerEvent(QTimerEvent* event) {
    if (!mouse_.timeOut(event->timerId()))
        QAbstractScrollArea::timerEvent(event);
}

void CGridWnd::keyPressEvent(QKeyEvent* event) {
    event->setAccepted(!validating() && (keyPressed(event) || keys_.press(event)));
}

bool CGridWnd::focusNextPrevChild(bool) {
    return false; // Tab goes through the cells
}

void CGridWnd::inputMethodEvent(QInputMethodEvent* event) {
    const bool typed = !event->commitString().isEmpty() || !event->preeditString().isEmpty();
    if (typed && !isEditing() && edit_.open(GridEdit::Start::Empty))
        QCoreApplication::sendEvent(edit_.editor(), event);
    else
        QAbstractScrollArea::inputMethodEvent(event);
}

void CGridWnd::printTo(QPrinter& printer) const {
    PrintJob job;
    for (int col = 0; col <= colCount(); ++col) {
        if (!isColVisible(col))
            continue;
        job.cols.push_back(col);
        job.repeatedCols += frozenCols_ > 0 && col <= frozenCols_ ? 1 : 0;
    }
    job.title = printTitle_;
    job.font = font();
    printGrid(*this, gridRows(), job, printer);
}

void CGridWnd::printPreview() {
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    printer.setDocName(printTitle_);
    QPrintPreviewDialog preview(&printer, this);
    connect(&preview, &QPrintPreviewDialog::paintRequested, this,
            [this](QPrinter* target) { printTo(*target); });
    preview.exec();
}

} // namespace partwright::grid
