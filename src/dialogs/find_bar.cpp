#include "dialogs/find_bar.h"

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
      backward_(new QCheckBox(tr("Bac&kward"), this)), text_(new QLineEdit(this)) {
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
    addLabelled(tr("i&n column:"), column_, QStringLiteral("findColumn"));
    mode_->addItems({tr("whole text"), tr("part of the text"), tr("beginning of the text")});
    mode_->setCurrentIndex(1);
    addLabelled(tr("co&mparing:"), mode_, QStringLiteral("findMode"));
    backward_->setObjectName(QStringLiteral("findBackward"));
    backward_->setAccessibleName(tr("Search backward"));
    row->addWidget(backward_);

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
    row->addStretch(1);
    QWidget* const inOrder[] = {text_, column_, mode_, backward_, find, hide};
    for (std::size_t i = 1; i < std::size(inOrder); ++i)
        setTabOrder(inOrder[i - 1], inOrder[i]);
    QWidget::hide();
}

void FindBar::addColumn(int number, const QString& header) {
    column_->addItem(header, number);
}

void FindBar::open(int column) {
    if (const int entry = column_->findData(column); entry >= 0)
        column_->setCurrentIndex(entry);
    show();
    text_->setFocus(Qt::ShortcutFocusReason);
    text_->selectAll();
}

void FindBar::repeat(bool backward) {
    request(backward != backward_->isChecked());
}

void FindBar::request(bool backward) {
    if (text_->text().isEmpty()) {
        open(column_->currentData().toInt());
        return;
    }
    Q_EMIT requested(QStringLiteral("%1_%2_%3_")
                         .arg(column_->currentData().toInt())
                         .arg(mode_->currentIndex())
                         .arg(backward ? 1 : 0) +
                     text_->text());
}

void FindBar::close() {
    hide();
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
