// The grid against the toolkit's table view over the same cells. Run by hand; the counters are the
// ratios that matter:
//
//     QT_QPA_PLATFORM=offscreen build/bench/bin/grid_bench
//
// "page_ratio" and "sort_ratio" are the grid's time over the toolkit's, "paint_ratio" and
// "move_ratio" are 100,000 rows over 1,000 rows.

#include "grid/grid_window.h"

#include <benchmark/benchmark.h>

#include <QAbstractTableModel>
#include <QApplication>
#include <QHeaderView>
#include <QPaintEvent>
#include <QScrollBar>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <algorithm>
#include <ctime>
#include <functional>

namespace {

using partwright::grid::CGridCore;
using partwright::grid::CGridWnd;
using partwright::grid::SortOrder;
using partwright::grid::SortRule;

constexpr int manyRows = 100000;
constexpr int fewRows = 1000;
constexpr int colCount = 20;
const QSize windowSize(1600, 900);

QString cellText(int row, int col) {
    const auto mixed = static_cast<unsigned>(row) * 2654435761U + static_cast<unsigned>(col) * 97U;
    return col == 1 ? QStringLiteral("PN-%1-%2").arg(mixed % 99991).arg(row)
                    : QString::number((mixed >> 8) % 100000);
}

void fill(CGridCore& grid, int rows) {
    grid.InsertCols(1, colCount);
    grid.InsertRows(1, rows);
    for (int col = 1; col <= colCount; ++col)
        grid.setText(0, col, QStringLiteral("Column %1").arg(col));
    const partwright::grid::RedrawLock lock(grid);
    for (int row = 1; row <= rows; ++row)
        for (int col = 1; col <= colCount; ++col)
            grid.setText(row, col, cellText(row, col));
}

/// The grid's cells as a model.
class Model : public QAbstractTableModel {
public:
    explicit Model(const CGridCore& grid) : grid_(grid) {}
    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : grid_.rowCount();
    }
    int columnCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : grid_.colCount();
    }
    QVariant data(const QModelIndex& index, int role) const override {
        return role == Qt::DisplayRole ? grid_.text(index.row() + 1, index.column() + 1)
                                       : QVariant();
    }

private:
    const CGridCore& grid_;
};

/// Of the processor, so that other programs do not count.
double seconds(const std::function<void()>& work) {
    const std::clock_t start = std::clock();
    work();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

/// The median, so that a disturbance of the machine does not count.
double median(int runs, const std::function<double()>& measure) {
    std::vector<double> times;
    for (int i = 0; i < runs; ++i)
        times.push_back(measure());
    std::nth_element(times.begin(), times.begin() + runs / 2, times.end());
    return times[static_cast<std::size_t>(runs / 2)];
}

void present(QWidget& window) {
    window.resize(windowSize);
    window.show();
    QApplication::processEvents();
}

double scrollPages(QAbstractScrollArea& view) {
    constexpr int pages = 50;
    return seconds([&] {
               for (int page = 0; page < pages; ++page) {
                   view.verticalScrollBar()->setValue(view.verticalScrollBar()->value() +
                                                      view.verticalScrollBar()->pageStep());
                   view.viewport()->repaint();
               }
           }) /
           pages;
}

/// One page after the other through the rows, each painted whole.
void pageRepaint(benchmark::State& state) {
    CGridWnd grid;
    fill(grid, manyRows);
    present(grid);
    Model model(grid);
    QTableView table;
    table.setModel(&model);
    table.verticalHeader()->setDefaultSectionSize(grid.cellRect(1, 1).height());
    table.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    for (int col = 0; col < colCount; ++col)
        table.setColumnWidth(col, grid.colWidth(col + 1));
    present(table);
    double ours = 0;
    double theirs = 0;
    for (auto step : state) {
        ours = median(9, [&] { return scrollPages(grid); });
        theirs = median(9, [&] { return scrollPages(table); });
    }
    state.counters["grid_us"] = ours * 1e6;
    state.counters["table_us"] = theirs * 1e6;
    state.counters["page_ratio"] = ours / theirs;
}

/// The same page again and again, as when a window is uncovered.
void samePage(benchmark::State& state) {
    CGridWnd grid;
    fill(grid, fewRows);
    present(grid);
    Model model(grid);
    QTableView table;
    table.setModel(&model);
    table.verticalHeader()->setDefaultSectionSize(grid.cellRect(1, 1).height());
    present(table);
    double ours = 0;
    double theirs = 0;
    const auto repaint = [](QWidget* view) {
        return median(101, [&] { return seconds([&] { view->repaint(); }); });
    };
    for (auto step : state) {
        ours = repaint(grid.viewport());
        theirs = repaint(table.viewport());
    }
    state.counters["grid_us"] = ours * 1e6;
    state.counters["table_us"] = theirs * 1e6;
    state.counters["page_ratio"] = ours / theirs;
}

void sortColumn(benchmark::State& state) {
    const int col = static_cast<int>(state.range(0));
    CGridCore grid;
    fill(grid, manyRows);
    Model model(grid);
    QSortFilterProxyModel proxy;
    proxy.setSourceModel(&model);
    proxy.sort(3);
    double theirs = 0;
    double ours = 0;
    for (auto step : state) {
        theirs = seconds([&] { proxy.sort(col - 1); });
        proxy.sort(3);
    }
    // The proxy follows its model, so the grid moves its rows only after it has been measured.
    proxy.setSourceModel(nullptr);
    ours = median(5, [&] {
        grid.sortRows(4, SortRule{});
        return seconds([&] { grid.sortRows(col, SortRule{}); });
    });
    state.counters["grid_ms"] = ours * 1e3;
    state.counters["proxy_ms"] = theirs * 1e3;
    state.counters["sort_ratio"] = ours / theirs;
}

double firstPaint(int rows) {
    CGridWnd grid;
    fill(grid, rows);
    grid.resize(windowSize);
    return seconds([&] {
        grid.show();
        QApplication::processEvents();
        grid.viewport()->repaint();
    });
}

void firstPaintOfManyRows(benchmark::State& state) {
    firstPaint(fewRows);
    std::vector<double> few;
    std::vector<double> many;
    // In turns, so that both meet the same load of the machine.
    for (auto step : state) {
        for (int i = 0; i < 11; ++i) {
            few.push_back(firstPaint(fewRows));
            many.push_back(firstPaint(manyRows));
        }
    }
    std::sort(few.begin(), few.end());
    std::sort(many.begin(), many.end());
    const std::size_t middle = few.size() / 2;
    state.counters["few_ms"] = few[middle] * 1e3;
    state.counters["many_ms"] = many[middle] * 1e3;
    state.counters["paint_ratio"] = many[middle] / few[middle];
}

double moveDown(CGridWnd& grid) {
    constexpr int moves = 200;
    const int first = grid.rowCount() - moves;
    grid.setCurrentCell(first, 1);
    return seconds([&] {
               for (int i = 0; i < moves; ++i) {
                   grid.setCurrentCell(first + i, 1 + i % colCount);
                   QApplication::processEvents();
               }
           }) /
           moves;
}

void cellMove(benchmark::State& state) {
    CGridWnd small;
    fill(small, fewRows);
    present(small);
    CGridWnd large;
    fill(large, manyRows);
    present(large);
    double few = 0;
    double many = 0;
    for (auto step : state) {
        few = median(9, [&] { return moveDown(small); });
        many = median(9, [&] { return moveDown(large); });
    }
    state.counters["few_us"] = few * 1e6;
    state.counters["many_us"] = many * 1e6;
    state.counters["move_ratio"] = many / few;
}

BENCHMARK(pageRepaint)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(samePage)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(sortColumn)->Arg(1)->Arg(2)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(firstPaintOfManyRows)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(cellMove)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
