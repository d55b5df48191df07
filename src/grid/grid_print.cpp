#include "grid/grid_print.h"

#include "grid/grid_painter.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QPainter>
#include <QPrinter>
#include <algorithm>
#include <cmath>

namespace partwright::grid {

namespace {

constexpr double screenDots = 96;
constexpr double pointsPerInch = 72;

QPalette paperColors() {
    QPalette colors;
    colors.setColor(QPalette::Base, Qt::white);
    colors.setColor(QPalette::Text, Qt::black);
    colors.setColor(QPalette::Button, QColor(238, 238, 238));
    colors.setColor(QPalette::ButtonText, Qt::black);
    colors.setColor(QPalette::Link, QColor(0, 0, 200));
    return colors;
}

/// All lengths are in screen dots; the painter scales them to the paper.
class Paper {
public:
    Paper(const CGridCore& grid, const GridRows& rows, const PrintJob& job)
        : rows_(rows), job_(job), geometry_(rows), cells_(grid, geometry_), font_(job.font) {
        if (font_.pointSizeF() > 0)
            font_.setPixelSize(
                static_cast<int>(std::lround(font_.pointSizeF() * screenDots / pointsPerInch)));
        const QFontMetrics metrics(font_);
        rowHeight_ = std::max(grid.rowHeight(), metrics.height() + 4);
        geometry_.setHeights(rowHeight_, rowHeight_);
        cells_.setLook(font_, paperColors());
        for (const int col : job.cols)
            widths_.push_back(
                col > 0
                    ? grid.colWidth(col)
                    : std::max(grid.colWidth(0),
                               metrics.horizontalAdvance(QString::number(grid.rowCount())) + 10));
    }

    [[nodiscard]] int rowHeight() const { return rowHeight_; }
    [[nodiscard]] const std::vector<int>& widths() const { return widths_; }

    void page(QPainter& painter, const PagePlan& plan, int number, double width) {
        cells_.beginPaper();
        const auto& band = plan.bands[static_cast<std::size_t>(number / plan.pagesDown)];
        const int first = number % plan.pagesDown * plan.rowsPerPage;
        const int last = std::min(rows_.shownCount(), first + plan.rowsPerPage);
        painter.setPen(Qt::black);
        painter.setFont(font_);
        const QRectF head(0, 0, width, rowHeight_);
        painter.drawText(head, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, job_.title);
        painter.drawText(head, Qt::AlignRight | Qt::AlignVCenter,
                         QCoreApplication::translate("CGridWnd", "Page %1 of %2")
                             .arg(number + 1)
                             .arg(plan.pages()));
        int top = rowHeight_ + rowHeight_ / 2;
        line(painter, band, 0, top);
        for (int position = first; position < last; ++position)
            line(painter, band, rows_.shownRow(position), top += rowHeight_);
    }

private:
    void line(QPainter& painter, const std::vector<std::size_t>& band, int row, int top) {
        int left = 0;
        cells_.beginPaper();
        for (const std::size_t place : band) {
            const QRect area(left, top, widths_[place], rowHeight_);
            cells_.paintCell(painter, area, row, job_.cols[place]);
            painter.setPen(cells_.lineColor());
            painter.drawRect(area);
            left += widths_[place];
        }
    }

    const GridRows& rows_;
    const PrintJob& job_;
    GridGeometry geometry_;
    GridPainter cells_;
    QFont font_;
    std::vector<int> widths_;
    int rowHeight_ = 1;
};

} // namespace

PagePlan planPages(const std::vector<int>& widths, std::size_t repeated, int rowCount,
                   int rowHeight, QSizeF room) {
    PagePlan plan;
    double first = 0;
    for (std::size_t i = 0; i < repeated && i < widths.size(); ++i)
        first += widths[i];
    if (first > room.width() / 2)
        repeated = 0;
    double used = 0;
    for (std::size_t i = 0; i < widths.size(); ++i) {
        if (plan.bands.empty() || used + widths[i] > room.width()) {
            plan.bands.emplace_back();
            used = 0;
            for (std::size_t again = 0; again < repeated && i >= repeated; ++again) {
                plan.bands.back().push_back(again);
                used += widths[again];
            }
        }
        plan.bands.back().push_back(i);
        used += widths[i];
    }
    if (plan.bands.empty())
        plan.bands.emplace_back();
    plan.rowsPerPage = std::max(1, static_cast<int>(room.height() / rowHeight));
    plan.pagesDown = std::max(1, (rowCount + plan.rowsPerPage - 1) / plan.rowsPerPage);
    return plan;
}

void printGrid(const CGridCore& grid, const GridRows& rows, const PrintJob& job,
               QPrinter& printer) {
    Paper paper(grid, rows, job);
    QPainter painter;
    if (!painter.begin(&printer))
        return;
    const double scale = printer.resolution() / screenDots;
    painter.scale(scale, scale);
    const QSizeF page = QSizeF(printer.pageRect(QPrinter::DevicePixel).size()) / scale;
    // Title and header take two and a half rows.
    const double below = page.height() - 2.5 * paper.rowHeight() - 1;
    const PagePlan plan = planPages(paper.widths(), job.repeatedCols, rows.shownCount(),
                                    paper.rowHeight(), {page.width(), below});
    const int from = printer.fromPage() > 0 ? printer.fromPage() - 1 : 0;
    const int to = printer.toPage() > 0 ? std::min(printer.toPage(), plan.pages()) : plan.pages();
    for (int number = from; number < to; ++number) {
        if (number > from && !printer.newPage())
            return;
        paper.page(painter, plan, number, page.width());
    }
}

} // namespace partwright::grid
