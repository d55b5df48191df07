#pragma once

// The small bar that searches a table of components: a column, how to compare, a direction and a
// text. It only words the request; whoever has the table answers it.

#include <QFrame>
#include <QString>

class QCheckBox;
class QComboBox;
class QLineEdit;

namespace partwright {

class FindBar : public QFrame {
    Q_OBJECT

public:
    explicit FindBar(QWidget* parent = nullptr);

    /// A column to search in; `number` counts from 0 at the part number.
    void addColumn(int number, const QString& header);
    /// Shows the bar with the given column chosen, ready for typing.
    void open(int column);
    /// Searches once more; the other way round when `backward` differs from the bar's direction.
    void repeat(bool backward);

Q_SIGNALS:
    /// "column_mode_direction_text", as the table takes it.
    void requested(const QString& request);
    void closed();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void request(bool backward);
    void close();

    QComboBox* column_;
    QComboBox* mode_;
    QCheckBox* backward_;
    QLineEdit* text_;
};

} // namespace partwright
