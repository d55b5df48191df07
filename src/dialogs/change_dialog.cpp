#include "dialogs/change_dialog.h"

#include "core/text.h"
#include "dialogs/adv_dialog.h"
#include "dialogs/find_bar.h"
#include "dialogs/look.h"
#include "dialogs/power_calculator_dialog.h"
#include "dialogs/qt_text.h"
#include "editing/open_datasheet.h"
#include "editing/power_calculator.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

namespace partwright {

namespace {

/// First size of the window in characters and lines of its font; a wider table widens it.
constexpr int firstWidth = 200;
constexpr int firstHeight = 38;
constexpr double largestPartOfScreen = 0.95;

QVBoxLayout* groupBox(QBoxLayout* layout, const QString& title, const QString& name) {
    auto* box = new QGroupBox(title);
    box->setObjectName(name);
    layout->addWidget(box);
    return new QVBoxLayout(box);
}

QVBoxLayout* buttonColumn(QBoxLayout* layout) {
    auto* column = new QVBoxLayout;
    column->addStretch(1);
    layout->addLayout(column);
    return column;
}

} // namespace

CComChange1::CComChange1(TableSession& session, const DialogServices& services,
                         std::shared_ptr<grid::SortFlags> flags, QWidget* parent)
    : QDialog(parent), session_(session), services_(services) {
    setObjectName(QStringLiteral("changeDialog"));
    setWindowTitle(qtText(session_.title()));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setSizeGripEnabled(true);
    auto* column = new QVBoxLayout(this);
    grid_ = new CComponentGrid(session_, services_.prompt, std::move(flags), this);
    grid_->setObjectName(QStringLiteral("componentGrid"));
    grid_->setAccessibleName(tr("Components of the group"));
    grid_->setPrintTitle(windowTitle().simplified());
    column->addWidget(grid_, 1);
    findBar_ = new FindBar(this);
    column->addWidget(findBar_);
    makeControls(column);
    makeShortcuts();

    connect(grid_, &CComponentGrid::lineChanged, line_, [this](const QString& line) {
        line_->setText(line);
        line_->setToolTip(line);
    });
    connect(grid_, &CComponentGrid::datasheetOpened, this, [this](const QString& file) {
        OpenDatasheet(services_.app.paths, engineText(file), services_.prompt, services_.opener);
    });
    const auto& columns = session_.setup().columns;
    for (std::size_t at = 1; at < columns.size(); ++at)
        if (!columns[at].hidden)
            findBar_->addColumn(at, qtText(columns[at].header));
    connect(findBar_, &FindBar::requested, this, &CComChange1::find);
    connect(grid_, &CComponentGrid::findAsked, this, &CComChange1::openFindBar);
    connect(grid_, &CComponentGrid::marksCounted, this, &CComChange1::showMarkCount);
    connect(findBar_, &FindBar::closed, grid_, [this] { grid_->setFocus(Qt::OtherFocusReason); });
    fitToScreen();
    grid_->setFocus(Qt::OtherFocusReason);
}

void CComChange1::makeControls(QBoxLayout* column) {
    auto* lineRow = new QHBoxLayout;
    auto* caption = new QLabel(tr("Parameter Description:"), this);
    caption->setObjectName(QStringLiteral("parameterDescriptionLabel"));
    line_ = new QLabel(this);
    line_->setObjectName(QStringLiteral("parameterDescription"));
    line_->setTextFormat(Qt::PlainText);
    line_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    line_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    look::paintAlarm(*line_);
    lineRow->addWidget(caption);
    lineRow->addWidget(line_, 1);
    column->addLayout(lineRow);

    auto* row = new QHBoxLayout;
    column->addLayout(row);
    QBoxLayout* box = groupBox(row, tr("Digi-Key"), QStringLiteral("digiKeyBox"));
    addLater(box, tr("Login"), QStringLiteral("login.svg"), QStringLiteral("login"));
    addLater(box, tr("Part Number Search"), QStringLiteral("part_search.svg"),
             QStringLiteral("partNumberSearch"));
    box = buttonColumn(row);
    addLater(box, tr("Web Search AI Driven"), QStringLiteral("web_search.svg"),
             QStringLiteral("webSearch"));
    addLater(box, tr("Lib Parameter AI Helper"), QStringLiteral("ai_helper.svg"),
             QStringLiteral("aiHelper"));
    box = groupBox(row, tr("Component"), QStringLiteral("componentBox"));
    connect(addButton(box, tr("&Add"), QStringLiteral("add.svg"), tr("Add a new component"),
                      QStringLiteral("add")),
            &QPushButton::clicked, this, &CComChange1::addComponent);
    connect(addButton(box, tr("Cop&y"), QStringLiteral("copy.svg"),
                      tr("Copy the component of the current row under a new part number"),
                      QStringLiteral("copy")),
            &QPushButton::clicked, this, &CComChange1::copyComponent);
    box = buttonColumn(row);
    connect(addButton(box, tr("Change &Group"), QStringLiteral("change_group.svg"),
                      tr("Move the component of the current row to another group"),
                      QStringLiteral("changeGroup")),
            &QPushButton::clicked, this, &CComChange1::changeGroup);
    QPushButton* const calculator =
        addButton(box, tr("&P/T/O Calculator"), QStringLiteral("calculator.svg"),
                  tr("Work out power, temperatures and thermal resistances of the current row"),
                  QStringLiteral("calculator"));
    calculator->setEnabled(PowerCalculator::serves(session_.setup()));
    connect(calculator, &QPushButton::clicked, this, &CComChange1::calculate);
    box = groupBox(row, tr("Datasheet"), QStringLiteral("datasheetBox"));
    addLater(box, tr("Search"), QStringLiteral("datasheet_search.svg"),
             QStringLiteral("datasheetSearch"));
    addLater(box, tr("Refresh"), QStringLiteral("refresh.svg"), QStringLiteral("datasheetRefresh"));
    markCount_ = new QLabel(this);
    markCount_->setObjectName(QStringLiteral("markCount"));
    markCount_->setAlignment(Qt::AlignRight | Qt::AlignBottom);
    markCount_->setWordWrap(true);
    markCount_->setToolTip(tr("F8 goes to the next one, Shift+F8 to the one before"));
    look::paintAlarm(*markCount_);
    row->addWidget(markCount_, 1);
    box = buttonColumn(row);
    QPushButton* const ok = addButton(box, tr("OK"), QStringLiteral("ok.svg"),
                                      tr("Keep the changes"), QStringLiteral("ok"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &CComChange1::accept);
    connect(addButton(box, tr("Cancel"), QStringLiteral("cancel.svg"), tr("Drop all changes"),
                      QStringLiteral("cancel")),
            &QPushButton::clicked, this, &QDialog::reject);
}

QPushButton* CComChange1::addButton(QBoxLayout* layout, const QString& caption,
                                    const QString& image, const QString& toolTip,
                                    const QString& name) {
    QPushButton* const button = look::imageButton(caption, image, toolTip, name);
    layout->addWidget(button);
    return button;
}

void CComChange1::addLater(QBoxLayout* layout, const QString& caption, const QString& image,
                           const QString& name) {
    addButton(layout, caption, image, QString(), name)->setEnabled(false);
}

void CComChange1::makeShortcuts() {
    const auto add = [this](const QKeySequence& key, auto action) {
        connect(new QShortcut(key, this), &QShortcut::activated, this, action);
    };
    for (const QKeySequence& key : QKeySequence::keyBindings(QKeySequence::Undo))
        add(key, [this] { grid_->undo(); });
    QList<QKeySequence> redoKeys = QKeySequence::keyBindings(QKeySequence::Redo);
    if (const QKeySequence usual(Qt::CTRL | Qt::Key_Y); !redoKeys.contains(usual))
        redoKeys.append(usual);
    for (const QKeySequence& key : redoKeys)
        add(key, [this] { grid_->redo(); });
    add(Qt::Key_F8, [this] { grid_->goToMark(false); });
    add(Qt::SHIFT | Qt::Key_F8, [this] { grid_->goToMark(true); });
    add(Qt::CTRL | Qt::SHIFT | Qt::Key_F, [this] { openFindBar(); });
    add(Qt::Key_F3, [this] { findBar_->repeat(false); });
    add(Qt::SHIFT | Qt::Key_F3, [this] { findBar_->repeat(true); });
}

/// The first size is the smallest one too, so it should fit the screen, but for the controls, which
/// are never cut.
void CComChange1::fitToScreen() {
    const QMargins around = layout()->contentsMargins();
    int columns = around.left() + around.right() + 2 * grid_->frameWidth() +
                  grid_->verticalScrollBar()->sizeHint().width();
    for (int col = 0; col <= grid_->colCount(); ++col)
        columns += grid_->isColHidden(col) ? 0 : grid_->colWidth(col);
    const QSize wanted(std::max(columns, fontMetrics().averageCharWidth() * firstWidth),
                       fontMetrics().height() * firstHeight);
    const QSize room = screen()->availableSize() * largestPartOfScreen;
    resize(wanted.boundedTo(room).expandedTo(layout()->minimumSize()));
    setMinimumSize(size());
}

void CComChange1::accept() {
    if (!grid_->commitEdit())
        return;
    const auto ok = [this](Consent consent) {
        return session_.ok(grid_->rowOrder(), services_.app.libraries.datasheetLinks, consent);
    };
    TableOutcome outcome = ok(Consent::NotAsked);
    if (grid_->show(outcome))
        grid_->show(outcome = ok(Consent::Given));
    if (outcome.accepted)
        QDialog::accept();
    else
        grid_->setFocus(Qt::OtherFocusReason);
}

/// The window behind has the keyboard again, even where a box went away together with this one.
void CComChange1::done(int result) {
    QDialog::done(result);
    if (parentWidget() != nullptr)
        parentWidget()->window()->activateWindow();
}

void CComChange1::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Cancel))
        escape();
    else
        QDialog::keyPressEvent(event);
}

void CComChange1::escape() {
    if (grid_->escape())
        return;
    if (findBar_->isVisible()) {
        findBar_->close();
        return;
    }
    const TableOutcome outcome = session_.drop();
    if (outcome.accepted || grid_->show(outcome))
        reject();
}

void CComChange1::showMarkCount(std::size_t cells) {
    markCount_->setText(cells == 0   ? QString()
                        : cells == 1 ? tr("1 cell breaks its rule")
                                     : tr("%1 cells break their rule").arg(cells));
}

void CComChange1::customEvent(QEvent* event) {
    if (event->type() != SearchRequest::messageNumber) {
        QDialog::customEvent(event);
        return;
    }
    if (grid_->commitEdit())
        grid_->show(session_.search(static_cast<SearchRequest*>(event)->text(),
                                    grid_->currentSessionCell(), grid_->rowOrder()));
}

void CComChange1::showPart(const QString& part) {
    const ComponentTable& table = session_.table();
    for (std::size_t row = 0; row < table.rowCount(); ++row)
        if (table.row(row).part() == engineText(part)) {
            TableOutcome there;
            there.current = CellAt{row, partNumberColumn};
            there.selectedRows = {row};
            grid_->show(there);
        }
}

void CComChange1::openFindBar() {
    if (grid_->commitEdit())
        findBar_->open();
}

void CComChange1::find(const TableQuery& query) {
    if (!grid_->commitEdit())
        return;
    const auto hit = session_.find(query, grid_->currentSessionCell(), grid_->rowOrder());
    findBar_->answer(!hit                                 ? tr("No row has this text.")
                     : hit->isWrapped && query.isBackward ? tr("Went on from the last row.")
                     : hit->isWrapped                     ? tr("Went on from the first row.")
                                                          : QString());
    if (!hit)
        return;
    TableOutcome outcome;
    outcome.current = hit->at;
    outcome.selectedRows = {hit->at.row};
    grid_->show(outcome);
}

std::optional<std::size_t> CComChange1::currentRow() {
    if (!grid_->commitEdit())
        return std::nullopt;
    const auto current = grid_->currentSessionCell();
    if (const TableOutcome refusal = session_.requireRow(current); !refusal.accepted) {
        grid_->show(refusal);
        return std::nullopt;
    }
    grid_->setCurrentCell(grid_->gridRow(current->row), static_cast<int>(current->column));
    return current->row;
}

std::optional<GroupChoice> CComChange1::askForGroup(GroupChoiceMode mode,
                                                    std::optional<std::size_t> row) {
    GroupChoiceSession choice(mode, session_.familyGroups(), session_.setup().group,
                              [this](std::wstring_view part) { return session_.hasPart(part); });
    const QString part = row ? qtText(session_.table().text(*row, partNumberColumn)) : QString();
    if (CAdvDlg(choice, services_.prompt, part, this).exec() != QDialog::Accepted)
        return std::nullopt;
    return choice.result();
}

void CComChange1::addComponent() {
    if (!grid_->commitEdit())
        return;
    grid_->show(session_.RefreshAllRowFlags());
    if (const auto choice = askForGroup(GroupChoiceMode::Add, std::nullopt))
        grid_->show(session_.add(*choice));
}

void CComChange1::copyComponent() {
    if (!grid_->commitEdit())
        return;
    const TableOutcome checked = session_.checkBeforeCopy(grid_->rowOrder());
    grid_->show(checked);
    if (!checked.accepted)
        return;
    const auto row = currentRow();
    if (!row)
        return;
    if (const auto choice = askForGroup(GroupChoiceMode::Copy, row))
        grid_->show(session_.copy(*row, *choice));
}

void CComChange1::changeGroup() {
    const auto row = currentRow();
    if (!row)
        return;
    if (const auto choice = askForGroup(GroupChoiceMode::ChangeGroup, row))
        grid_->show(session_.changeGroup(*row, *choice));
}

void CComChange1::calculate() {
    const auto row = currentRow();
    if (!row)
        return;
    PowerCalculator calculator(session_.setup().group, session_.setup().decimalMark);
    CPowerDissipCalc dialog(
        calculator, session_.table().text(*row, partNumberColumn),
        [this, row] { return PowerCalculator::cellsOf(session_, *row); }, this);
    if (dialog.exec() == QDialog::Accepted)
        grid_->showChange(session_.storeResults(*row, calculator.results()));
}

} // namespace partwright
