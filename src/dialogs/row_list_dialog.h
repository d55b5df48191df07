#pragma once

// A list of what happened, in a window of its own: rows of texts under headings. A click on a
// heading sorts; Ctrl+C copies the selected rows with the headings as tab-separated text, all rows
// when none is selected; Enter or a double click on a row leads to where the row comes from, when
// the owner can go there.
//
//   RowListDialog dialog({tr("Group Library"), {tr("Part Number"), tr("Old"), tr("New")}}, this);
//   dialog.setRows({{"R1", "", "4700"}});
//   dialog.exec();

#include <QAbstractTableModel>
#include <QDialog>
#include <QString>
#include <QStringList>
#include <functional>
#include <string>
#include <vector>

class QLabel;
class QTableView;

namespace partwright {

/// The rows as they are shown; sorting moves positions, not texts.
class RowListModel : public QAbstractTableModel {
    Q_OBJECT

public:
    using Row = std::vector<std::wstring>;

    RowListModel(QStringList headings, QObject* parent)
        : QAbstractTableModel(parent), headings_(std::move(headings)) {}

    void setRows(std::vector<Row> rows);
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    void sort(int column, Qt::SortOrder order) override;

    /// Position of a shown row in what setRows() was given.
    [[nodiscard]] std::size_t givenRow(int row) const {
        return order_[static_cast<std::size_t>(row)];
    }

private:
    QStringList headings_;
    std::vector<Row> rows_;
    std::vector<std::size_t> order_;
};

class RowListDialog : public QDialog {
    Q_OBJECT

public:
    struct Look {
        QString title;
        QStringList headings;
        /// What the rows are, in a sentence above them; none when empty.
        QString explanation;
    };

    RowListDialog(const Look& look, QWidget* parent);

    void setRows(std::vector<RowListModel::Row> rows);
    /// Enter and double click end the dialog with the row chosen, if `choosable` agrees to it.
    void setChoosable(std::function<bool(std::size_t)> choosable);
    /// The row that ended the dialog, as setRows() was given it; -1 when none did.
    [[nodiscard]] int chosen() const { return chosen_; }

public Q_SLOTS:
    void copy() const;

private:
    void choose(const QModelIndex& index);

    RowListModel* model_;
    QTableView* view_;
    QLabel* count_;
    std::function<bool(std::size_t)> choosable_;
    int chosen_ = -1;
};

} // namespace partwright
