#include "dialogs/power_calculator_dialog.h"

#include "core/messages.h"
#include "dialogs/image_icon.h"
#include "dialogs/look.h"
#include "dialogs/qt_text.h"

#include <QAccessible>
#include <QButtonGroup>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace partwright {

namespace {

constexpr int widthOfField = 14;

} // namespace

CPowerDissipCalc::CPowerDissipCalc(PowerCalculator& calculator, std::wstring_view partNumber,
                                   RowCells cells, QWidget* parent)
    : QDialog(parent), calculator_(calculator), cells_(std::move(cells)),
      quantities_(new QButtonGroup(this)), places_(new QButtonGroup(this)) {
    look::initialiseImages();
    setWindowTitle(qtText(message::calculatorTitle(partNumber)));
    setObjectName(QStringLiteral("powerCalculator"));
    auto* column = new QVBoxLayout(this);
    column->addWidget(makeQuantityBox());
    column->addWidget(makeStatusBox());
    column->addLayout(makeButtons());
    column->addStretch(1);
    setTabOrders();
    load();
}

// "Oj" stands above the box of the two places, and the resistance to each place below it.
QGroupBox* CPowerDissipCalc::makeQuantityBox() {
    auto* box = new QGroupBox(tr("Select a parameter to be calculated"), this);
    box->setObjectName(QStringLiteral("quantityBox"));
    auto* grid = new QGridLayout(box);
    grid->addWidget(makeQuantity(Quantity::Junction, tr("Tj, [°C]"), "calculateTj"), 0, 0, 2, 1);
    auto* ts = makeQuantity(Quantity::Reference, tr("Ts, [°C]"), "calculateTs");
    grid->addWidget(ts, 0, 1, 2, 1);
    grid->addWidget(makeQuantity(Quantity::Power, tr("Pw, [W]"), "calculatePw"), 0, 2, 2, 1);
    grid->addWidget(makeQuantity(Quantity::Resistance, tr("Oj, [°C/W]"), "calculateOj"), 0, 3, 1,
                    2);
    grid->addWidget(makePlaceBox(), 1, 3, 1, 2);
    const std::pair<QString, const char*> fields[] = {{tr("Tj, [°C]"), "tj"},
                                                      {tr("Ts, [°C]"), "ts"},
                                                      {tr("Pw, [W]"), "pw"},
                                                      {tr("Oja, [°C/W]"), "oja"},
                                                      {tr("Ojc, [°C/W]"), "ojc"}};
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        fields_[i] = makeField(static_cast<CalculatorField>(i), fields[i].first, fields[i].second);
        grid->addWidget(fields_[i], 2, static_cast<int>(i));
    }
    ts->setDisabled(calculator_.isAmbientOnly());
    edit(CalculatorField::Reference)->setDisabled(calculator_.isAmbientOnly());
    return box;
}

QGroupBox* CPowerDissipCalc::makePlaceBox() {
    auto* box = new QGroupBox(this);
    box->setObjectName(QStringLiteral("placeBox"));
    box->setAccessibleName(tr("Thermal resistance from the junction to"));
    auto* row = new QHBoxLayout(box);
    row->addWidget(makePlace(ReferencePlace::Ambient, tr("Ambient"), "ambient"), 1);
    auto* atCase = makePlace(ReferencePlace::Case, tr("Case"), "case");
    atCase->setDisabled(calculator_.isAmbientOnly());
    row->addWidget(atCase, 1);
    return box;
}

QRadioButton* CPowerDissipCalc::makeQuantity(Quantity quantity, const QString& caption,
                                             const char* name) {
    auto* radio = new QRadioButton(caption, this);
    radio->setObjectName(QLatin1String(name));
    radio->setAccessibleName(caption);
    quantities_->addButton(radio, static_cast<int>(quantity));
    return radio;
}

QRadioButton* CPowerDissipCalc::makePlace(ReferencePlace place, const QString& caption,
                                          const char* name) {
    auto* radio = new QRadioButton(caption, this);
    radio->setObjectName(QLatin1String(name));
    radio->setAccessibleName(caption);
    places_->addButton(radio, static_cast<int>(place));
    return radio;
}

QLineEdit* CPowerDissipCalc::makeField(CalculatorField field, const QString& caption,
                                       const char* name) {
    auto* line = new QLineEdit(this);
    line->setObjectName(QLatin1String(name));
    line->setAccessibleName(caption);
    line->setToolTip(caption);
    line->setMinimumWidth(fontMetrics().averageCharWidth() * widthOfField);
    connect(line, &QLineEdit::textChanged, this, [this, field] { filter(field); });
    return line;
}

QGroupBox* CPowerDissipCalc::makeStatusBox() {
    auto* box = new QGroupBox(tr("Status:"), this);
    box->setObjectName(QStringLiteral("statusBox"));
    auto* row = new QHBoxLayout(box);
    const int side = fontMetrics().height() * 5 / 4;
    statusPicture_ = new QLabel(box);
    statusPicture_->setObjectName(QStringLiteral("statusPicture"));
    statusPicture_->setAccessibleName(tr("Not calculated"));
    statusPicture_->setFixedSize(side, side);
    statusPicture_->setPixmap(imageIcon(QStringLiteral("status_uncompleted.svg"))
                                  .pixmap(QSize(side, side), devicePixelRatioF()));
    QSizePolicy keepsRoom = statusPicture_->sizePolicy();
    keepsRoom.setRetainSizeWhenHidden(true);
    statusPicture_->setSizePolicy(keepsRoom);
    status_ = new QLabel(box);
    status_->setObjectName(QStringLiteral("status"));
    look::paintAlarm(*status_);
    QFont bold = status_->font();
    bold.setBold(true);
    status_->setFont(bold);
    row->addWidget(statusPicture_);
    row->addWidget(status_, 1);
    return box;
}

QBoxLayout* CPowerDissipCalc::makeButtons() {
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    std::size_t count = 0;
    const auto add = [&](const QString& caption, const char* image, const char* name,
                         auto pressed) {
        QPushButton* button =
            look::imageButton(caption, QLatin1String(image), QString(), QLatin1String(name));
        connect(button, &QPushButton::clicked, this, pressed);
        row->addWidget(button);
        buttons_[count++] = button;
    };
    add(tr("OK"), "ok.svg", "ok", [this] { accept(); });
    add(tr("Cancel"), "cancel.svg", "cancel", [this] { reject(); });
    add(tr("Refresh"), "refresh.svg", "refresh", [this] { load(); });
    add(tr("Calculate"), "calculator.svg", "calculate", [this] { calculate(); });
    buttons_[0]->setDefault(true);
    return row;
}

void CPowerDissipCalc::setTabOrders() {
    QWidget* last = quantities_->button(static_cast<int>(Quantity::Resistance));
    const auto then = [&last](QWidget* next) {
        setTabOrder(last, next);
        last = next;
    };
    then(places_->button(static_cast<int>(ReferencePlace::Ambient)));
    then(places_->button(static_cast<int>(ReferencePlace::Case)));
    for (QLineEdit* field : fields_)
        then(field);
    for (QPushButton* button : buttons_)
        then(button);
}

void CPowerDissipCalc::load() {
    calculator_.load(cells_());
    quantities_->button(static_cast<int>(Quantity::Power))->setChecked(true);
    places_->button(static_cast<int>(calculator_.place()))->setChecked(true);
    showFields();
    showStatus();
}

bool CPowerDissipCalc::calculate() {
    calculator_.setPlace(static_cast<ReferencePlace>(places_->checkedId()));
    const bool done = calculator_.calculate(static_cast<Quantity>(quantities_->checkedId()));
    showFields();
    showStatus();
    return done;
}

void CPowerDissipCalc::accept() {
    if (calculate())
        QDialog::accept();
}

void CPowerDissipCalc::filter(CalculatorField field) {
    if (showing_)
        return;
    QLineEdit* line = edit(field);
    const QString typed = line->text();
    // What was kept before the cursor is where the cursor belongs.
    const auto cursor =
        calculator_.setField(field, typed.left(line->cursorPosition()).toStdWString()).size();
    const QString kept = qtText(calculator_.setField(field, typed.toStdWString()));
    if (kept == typed)
        return;
    showing_ = true;
    line->setText(kept);
    showing_ = false;
    line->setCursorPosition(static_cast<int>(cursor));
}

void CPowerDissipCalc::showFields() {
    showing_ = true;
    for (std::size_t i = 0; i < fields_.size(); ++i)
        fields_[i]->setText(qtText(calculator_.field(static_cast<CalculatorField>(i))));
    showing_ = false;
}

void CPowerDissipCalc::showStatus() {
    const QString text = qtText(calculator_.status());
    status_->setText(text);
    statusPicture_->setVisible(!text.isEmpty());
    if (!text.isEmpty()) {
        QAccessibleEvent event(status_, QAccessible::Alert);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace partwright
