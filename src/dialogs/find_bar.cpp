#include "dialogs/find_bar.h"

#include "dialogs/look.h"
#include "dialogs/qt_text.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <iterator>

namespace partwright {

FindBar::FindBar(QWidget* parent)
    : QFrame(parent), column_(new QComboBox(this)), mode_(new QComboBox(this)),
      text_(new QLineEdit(this)), answer_(new QLabel(this)) {
    setObjectName(QStringLiteral("findBar"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    const auto addLabelled = [&](const QString& caption, QWidget* field, const QString& name) {
        auto* label = new QLabel(caption, this);
        label->setBuddy(field);
        field->setObjectName(name);
        field->setAccessibleName(QString(caption).remove(QLatin1Char('&')).remove(u':'));
        row->addWidget(label);
        row->addWidget(field);
    };
    addLabelled(tr("&Find:"), text_, QStringLiteral("findText"));
    text_->setMinimumWidth(fontMetrics().averageCharWidth() * 20);
    column_->addItem(tr("(all columns)"));
    addLabelled(tr("i&n column:"), column_, QStringLiteral("findColumn"));
    mode_->addItems({tr("whole text"), tr("part of the text"), tr("beginning of the text")});
    mode_->setCurrentIndex(1);
    addLabelled(tr("co&mparing:"), mode_, QStringLiteral("findMode"));
    case_ = addCheck(tr("Match &case"), QStringLiteral("findCase"));
    backward_ = addCheck(tr("Bac&kward"), QStringLiteral("findBackward"));

    auto* find = new QPushButton(tr("Fin&d Next"), this);
    find->setObjectName(QStringLiteral("findNext"));
    find->setAccessibleName(tr("Find next"));
    find->setToolTip(tr("Find the next row (F3), Shift+F3 goes the other way"));
    connect(find, &QPushButton::clicked, this, [this] { request(backward_->isChecked()); });
    row->addWidget(find);
    auto* hide = new QPushButton(tr("Close"), this);
    hide->setObjectName(QStringLiteral("findClose"));
    hide->setAccessibleName(tr("Close the find bar"));
    hide->setToolTip(tr("Close the find bar (Esc)"));
    connect(hide, &QPushButton::clicked, this, &FindBar::close);
    row->addWidget(hide);
    answer_->setObjectName(QStringLiteral("findAnswer"));
    look::paintAlarm(*answer_);
    row->addWidget(answer_, 1);
    QWidget* const inOrder[] = {text_, column_, mode_, case_, backward_, find, hide};
    for (std::size_t i = 1; i < std::size(inOrder); ++i)
        setTabOrder(inOrder[i - 1], inOrder[i]);
    QWidget::hide();
}

QCheckBox* FindBar::addCheck(const QString& caption, const QString& name) {
    auto* const check = new QCheckBox(caption, this);
    check->setObjectName(name);
    layout()->addWidget(check);
    return check;
}

void FindBar::addColumn(std::size_t column, const QString& header) {
    column_->addItem(header, static_cast<qulonglong>(column));
}

void FindBar::open() {
    show();
    text_->setFocus(Qt::ShortcutFocusReason);
    text_->selectAll();
}

void FindBar::answer(const QString& text) {
    answer_->setText(text);
}

void FindBar::repeat(bool backward) {
    request(backward != backward_->isChecked());
}

void FindBar::request(bool backward) {
    if (text_->text().isEmpty()) {
        open();
        return;
    }
    TableQuery query;
    if (const QVariant column = column_->currentData(); column.isValid())
        query.column = column.value<std::size_t>();
    query.match = static_cast<TextMatch>(mode_->currentIndex());
    query.isBackward = backward;
    query.ignoresCase = !case_->isChecked();
    query.wraps = true;
    query.text = engineText(text_->text());
    Q_EMIT requested(query);
}

void FindBar::close() {
    hide();
    answer({});
    Q_EMIT closed();
}

/// Enter searches and Escape closes the bar; neither is for the dialog around it.
void FindBar::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        request(backward_->isChecked() != event->modifiers().testFlag(Qt::ShiftModifier));
        break;
    case Qt::Key_Escape:
        close();
        break;
    default:
        QFrame::keyPressEvent(event);
    }
}

} // namespace partwright
