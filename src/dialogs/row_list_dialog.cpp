#include "dialogs/row_list_dialog.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <numeric>

namespace partwright {

void RowListModel::setRows(std::vector<Row> rows) {
    beginResetModel();
    rows_ = std::move(rows);
    order_.resize(rows_.size());
    std::iota(order_.begin(), order_.end(), std::size_t{0});
    endResetModel();
}

int RowListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int RowListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(headings_.size());
}

QVariant RowListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    const Row& row = rows_[givenRow(index.row())];
    const auto column = static_cast<std::size_t>(index.column());
    return column < row.size() ? QString::fromStdWString(row[column]) : QString();
}

QVariant RowListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole)
        return {};
    if (orientation == Qt::Vertical)
        return section + 1;
    return headings_.value(section);
}

void RowListModel::sort(int column, Qt::SortOrder order) {
    Q_EMIT layoutAboutToBeChanged();
    const QModelIndexList before = persistentIndexList();
    std::vector<std::size_t> given;
    for (const QModelIndex& index : before)
        given.push_back(givenRow(index.row()));
    if (column < 0) {
        std::iota(order_.begin(), order_.end(), std::size_t{0});
    } else {
        const auto at = static_cast<std::size_t>(column);
        const auto isBefore = [&](std::size_t a, std::size_t b) {
            return order == Qt::AscendingOrder ? rows_[a][at] < rows_[b][at]
                                               : rows_[b][at] < rows_[a][at];
        };
        std::stable_sort(order_.begin(), order_.end(), isBefore);
    }
    std::vector<int> shownAt(order_.size());
    for (std::size_t i = 0; i < order_.size(); ++i)
        shownAt[order_[i]] = static_cast<int>(i);
    for (qsizetype i = 0; i < before.size(); ++i)
        changePersistentIndex(
            before[i], index(shownAt[given[static_cast<std::size_t>(i)]], before[i].column()));
    Q_EMIT layoutChanged();
}

RowListDialog::RowListDialog(const Look& look, QWidget* parent)
    : QDialog(parent), model_(new RowListModel(look.headings, this)), view_(new QTableView(this)),
      count_(new QLabel(this)) {
    setWindowTitle(look.title);
    setObjectName(QStringLiteral("rowListDialog"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setSizeGripEnabled(true);
    auto* column = new QVBoxLayout(this);
    if (!look.explanation.isEmpty()) {
        auto* explanation = new QLabel(look.explanation, this);
        explanation->setWordWrap(true);
        column->addWidget(explanation);
    }
    view_->setObjectName(QStringLiteral("rowList"));
    view_->setAccessibleName(look.title);
    view_->setModel(model_);
    view_->setSelectionBehavior(QAbstractItemView::SelectRows);
    view_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view_->setTabKeyNavigation(false);
    view_->setWordWrap(false);
    view_->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    view_->setSortingEnabled(true);
    view_->horizontalHeader()->setStretchLastSection(true);
    view_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
    column->addWidget(view_, 1);
    count_->setObjectName(QStringLiteral("rowCount"));
    column->addWidget(count_);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    QPushButton* copy = buttons->addButton(tr("&Copy"), QDialogButtonBox::ActionRole);
    copy->setObjectName(QStringLiteral("copy"));
    copy->setAutoDefault(false);
    copy->setToolTip(tr("Copies the selected rows with their headings, or all rows (Ctrl+C)"));
    buttons->button(QDialogButtonBox::Close)->setObjectName(QStringLiteral("close"));
    connect(copy, &QPushButton::clicked, this, &RowListDialog::copy);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);
    connect(new QShortcut(QKeySequence::Copy, this), &QShortcut::activated, this,
            &RowListDialog::copy);
    connect(view_, &QTableView::activated, this, &RowListDialog::choose);
    const QSize wanted(fontMetrics().averageCharWidth() * 110, fontMetrics().height() * 32);
    resize(wanted.boundedTo(screen()->availableSize() * 9 / 10));
    view_->setFocus();
}

void RowListDialog::setRows(std::vector<RowListModel::Row> rows) {
    for (RowListModel::Row& row : rows)
        row.resize(static_cast<std::size_t>(model_->columnCount()));
    model_->setRows(std::move(rows));
    // Measured on the first rows alone, so that a long list opens as fast as a short one.
    view_->horizontalHeader()->setResizeContentsPrecision(100);
    view_->resizeColumnsToContents();
    const int widest = fontMetrics().averageCharWidth() * 40;
    for (int i = 0; i < model_->columnCount(); ++i)
        view_->setColumnWidth(i, std::min(view_->columnWidth(i), widest));
    if (model_->rowCount() > 0)
        view_->setCurrentIndex(model_->index(0, 0));
    view_->clearSelection();
    count_->setText(model_->rowCount() == 1 ? tr("1 row") : tr("%1 rows").arg(model_->rowCount()));
}

void RowListDialog::setChoosable(std::function<bool(std::size_t)> choosable) {
    choosable_ = std::move(choosable);
    // Enter is about the row, also where it leads nowhere.
    for (QPushButton* button : findChildren<QPushButton*>())
        button->setAutoDefault(false);
}

void RowListDialog::copy() const {
    std::vector<int> rows;
    for (const QModelIndex& index : view_->selectionModel()->selectedRows())
        rows.push_back(index.row());
    if (rows.empty()) {
        rows.resize(static_cast<std::size_t>(model_->rowCount()));
        std::iota(rows.begin(), rows.end(), 0);
    }
    std::sort(rows.begin(), rows.end());
    const auto field = [](QString text) {
        // A field must not look like the end of itself.
        return text.replace(QLatin1Char('\t'), QLatin1Char(' '))
            .replace(QLatin1Char('\n'), QLatin1Char(' '));
    };
    QString text;
    const auto addLine = [&](auto textOf) {
        for (int i = 0; i < model_->columnCount(); ++i)
            text += (i == 0 ? QString() : QStringLiteral("\t")) + field(textOf(i));
        text += QLatin1Char('\n');
    };
    addLine(
        [&](int i) { return model_->headerData(i, Qt::Horizontal, Qt::DisplayRole).toString(); });
    for (const int row : rows)
        addLine([&](int i) { return model_->index(row, i).data().toString(); });
    QApplication::clipboard()->setText(text);
}

void RowListDialog::choose(const QModelIndex& index) {
    if (!choosable_ || !index.isValid() || !choosable_(model_->givenRow(index.row())))
        return;
    chosen_ = static_cast<int>(model_->givenRow(index.row()));
    accept();
}

} // namespace partwright
