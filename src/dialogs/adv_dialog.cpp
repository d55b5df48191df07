#include "dialogs/adv_dialog.h"

#include "core/cell_text.h"
#include "dialogs/look.h"
#include "dialogs/qt_text.h"
#include "editing/clean_text.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace partwright {

namespace {

constexpr int linesOfList = 19;
constexpr int widthOfFamilies = 44;
constexpr int widthOfGroups = 30;

/// A list in which a line is always chosen.
class OneOfList final : public QListWidget {
public:
    OneOfList(const QString& name, const QString& accessibleName, int characters, QWidget* parent)
        : QListWidget(parent) {
        setObjectName(name);
        setAccessibleName(accessibleName);
        setUniformItemSizes(true);
        setMinimumSize(fontMetrics().averageCharWidth() * characters,
                       fontMetrics().height() * linesOfList);
    }

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                         const QEvent*) const override {
        return index.isValid() ? QItemSelectionModel::ClearAndSelect
                               : QItemSelectionModel::NoUpdate;
    }
};

} // namespace

CAdvDlg::CAdvDlg(GroupChoiceSession& session, Prompt& prompt, const QString& partNumber,
                 QWidget* parent)
    : QDialog(parent), session_(session), prompt_(prompt) {
    look::initialiseImages();
    setWindowTitle(qtText(session_.title()));
    setObjectName(QStringLiteral("advDialog"));
    setSizeGripEnabled(true);
    auto* column = new QVBoxLayout(this);
    addPartNumber(column, partNumber);
    families_ = new OneOfList(QStringLiteral("families"), tr("Family"), widthOfFamilies, this);
    groups_ = new OneOfList(QStringLiteral("groups"), tr("Group"), widthOfGroups, this);
    auto* lists = new QHBoxLayout;
    lists->addLayout(makeList(tr("Family:"), families_), widthOfFamilies);
    lists->addLayout(makeList(tr("Group:"), groups_), widthOfGroups);
    column->addLayout(lists, 1);

    ok_ = look::imageButton(tr("OK"), QStringLiteral("ok.svg"), QString(), QStringLiteral("ok"));
    ok_->setDefault(true);
    QPushButton* cancel = look::imageButton(tr("Cancel"), QStringLiteral("cancel.svg"), QString(),
                                            QStringLiteral("cancel"));
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(ok_);
    buttons->addWidget(cancel);
    column->addLayout(buttons);

    showFamilies();
    families_->setEnabled(session_.asksGroup());
    groups_->setEnabled(session_.asksGroup());
    connect(families_, &QListWidget::currentRowChanged, this, [this](int row) {
        session_.chooseFamily(static_cast<std::size_t>(row));
        showGroups();
    });
    connect(groups_, &QListWidget::currentRowChanged, this,
            [this](int row) { session_.chooseGroup(static_cast<std::size_t>(row)); });
    connect(groups_, &QListWidget::itemDoubleClicked, this, &CAdvDlg::accept);
    connect(ok_, &QPushButton::clicked, this, &CAdvDlg::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void CAdvDlg::addPartNumber(QVBoxLayout* column, const QString& partNumber) {
    auto* label = new QLabel(tr("Part Number:"), this);
    partNumber_ = new QLineEdit(partNumber, this);
    partNumber_->setObjectName(QStringLiteral("partNumber"));
    partNumber_->setAccessibleName(tr("Part Number"));
    partNumber_->setMaxLength(static_cast<int>(cell::maximumLength));
    label->setBuddy(partNumber_);
    if (session_.asksPartNumber()) {
        partNumber_->selectAll();
    } else {
        partNumber_->setReadOnly(true);
        partNumber_->setBackgroundRole(QPalette::Window);
        QPalette colors = partNumber_->palette();
        colors.setColor(QPalette::Base, colors.color(QPalette::Window));
        partNumber_->setPalette(colors);
    }
    auto* row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(partNumber_, 1);
    column->addLayout(row);
    partNumberLine_ = new QLabel(this);
    partNumberLine_->setObjectName(QStringLiteral("partNumberLine"));
    look::paintAlarm(*partNumberLine_);
    partNumberLine_->hide();
    column->addWidget(partNumberLine_);
    connect(partNumber_, &QLineEdit::textEdited, this, &CAdvDlg::cleanPartNumber);
}

void CAdvDlg::cleanPartNumber() {
    const CleanText clean = partwright::cleanPartNumber(engineText(partNumber_->text()));
    if (!clean.complaint)
        return;
    partNumberLine_->setText(qtText(*clean.complaint));
    partNumberLine_->show();
    const int cursor = partNumber_->cursorPosition();
    partNumber_->setText(qtText(clean.text));
    partNumber_->setCursorPosition(cursor);
}

QVBoxLayout* CAdvDlg::makeList(const QString& caption, QListWidget* list) {
    auto* column = new QVBoxLayout;
    auto* label = new QLabel(caption, this);
    label->setBuddy(list);
    column->addWidget(label);
    column->addWidget(list, 1);
    return column;
}

void CAdvDlg::showFamilies() {
    for (const GroupChoiceSession::Family& family : session_.families())
        families_->addItem(qtText(family.shown));
    families_->setCurrentRow(families_->count() > 0 ? static_cast<int>(session_.family()) : -1);
    showGroups();
    if (!session_.asksPartNumber())
        groups_->setFocus();
}

void CAdvDlg::showGroups() {
    const QSignalBlocker blocker(groups_);
    groups_->clear();
    for (const FamilyGroup& group : session_.groups())
        groups_->addItem(qtText(group.name));
    ok_->setEnabled(groups_->count() > 0 || !session_.asksGroup());
    if (groups_->count() > 0)
        groups_->setCurrentRow(static_cast<int>(session_.group()));
}

void CAdvDlg::accept() {
    if (session_.accept(engineText(partNumber_->text()), prompt_)) {
        QDialog::accept();
        return;
    }
    partNumber_->setFocus();
    partNumber_->selectAll();
}

} // namespace partwright
