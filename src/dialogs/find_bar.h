#pragma once

// The small bar that searches a table of components: a text, a column or all of them, how to
// compare, a direction. It only words the query; whoever has the table answers it.

#include "editing/table_search.h"

#include <QFrame>
#include <QString>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;

namespace partwright {

class FindBar : public QFrame {
    Q_OBJECT

public:
    explicit FindBar(QWidget* parent = nullptr);

    /// A column of the table to search in, besides all of them.
    void addColumn(std::size_t column, const QString& header);
    /// Shows the bar, ready for typing.
    void open();
    void close();
    /// Searches once more; the other way round when `backward` differs from the bar's direction.
    void repeat(bool backward);
    /// What became of the query, beside it.
    void answer(const QString& text);

Q_SIGNALS:
    void requested(const TableQuery& query);
    void closed();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void request(bool backward);
    QCheckBox* addCheck(const QString& caption, const QString& name);

    QComboBox* column_;
    QComboBox* mode_;
    QCheckBox* case_ = nullptr;
    QCheckBox* backward_ = nullptr;
    QLineEdit* text_;
    QLabel* answer_;
};

} // namespace partwright
