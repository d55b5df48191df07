#pragma once

// The power dissipation calculator over one row of the component table. It shows what
// PowerCalculator holds and hands every keystroke to it.
//
//   PowerCalculator calculator(group, decimalMark);
//   CPowerDissipCalc dialog(calculator, partNumber, [&] { return cellsOf(row); }, this);
//   if (dialog.exec() == QDialog::Accepted)
//       session.storeResults(row, calculator.results());

#include "editing/power_calculator.h"

#include <QDialog>
#include <array>
#include <functional>
#include <string_view>
#include <vector>

class QBoxLayout;
class QButtonGroup;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace partwright {

class CPowerDissipCalc : public QDialog {
    Q_OBJECT

public:
    /// The cells of the row as they stand now; asked at the start and by "Refresh".
    using RowCells = std::function<std::vector<PowerCalculator::Cell>()>;

    CPowerDissipCalc(PowerCalculator& calculator, std::wstring_view partNumber, RowCells cells,
                     QWidget* parent = nullptr);

public Q_SLOTS:
    /// OK: calculates, and closes when that went through.
    void accept() override;

private:
    QGroupBox* makeQuantityBox();
    QGroupBox* makePlaceBox();
    QGroupBox* makeStatusBox();
    QBoxLayout* makeButtons();
    QRadioButton* makeQuantity(Quantity quantity, const QString& caption, const char* name);
    QRadioButton* makePlace(ReferencePlace place, const QString& caption, const char* name);
    QLineEdit* makeField(CalculatorField field, const QString& caption, const char* name);
    void setTabOrders();
    void load();
    bool calculate();
    void filter(CalculatorField field);
    void showFields();
    void showStatus();
    [[nodiscard]] QLineEdit* edit(CalculatorField field) const {
        return fields_[static_cast<std::size_t>(field)];
    }

    PowerCalculator& calculator_;
    RowCells cells_;
    QButtonGroup* quantities_ = nullptr;
    QButtonGroup* places_ = nullptr;
    std::array<QLineEdit*, 5> fields_{};
    QLabel* statusPicture_ = nullptr;
    QLabel* status_ = nullptr;
    std::array<QPushButton*, 4> buttons_{};
    /// The fields are being set to what the calculator holds, signs and exponents included.
    bool showing_ = false;
};

} // namespace partwright
