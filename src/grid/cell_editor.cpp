#include "grid/cell_editor.h"

#include "grid/choice_list.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollBar>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <limits>

namespace partwright::grid {

namespace {

constexpr int longestList = 16;
constexpr int columnGap = 16;
constexpr int lineGap = 6;

} // namespace

CellEditor::CellEditor(QWidget* parent, EditorHost& host, const CellStyle& look)
    : QLineEdit(parent), host_(host), kind_(look.kind), choices_(look.choices) {
    setFrame(false);
    setMaxLength(std::numeric_limits<int>::max());
    setTextMargins(2, 0, 2, 0);
    setReadOnly(isDropDown());
    setObjectName(QStringLiteral("cellEditor"));
    connect(this, &QLineEdit::textEdited, this, [this] { host_.editorTextChanged(); });
}

void CellEditor::keyPressEvent(QKeyEvent* event) {
    if (host_.editorKey(event))
        event->accept();
    else
        QLineEdit::keyPressEvent(event);
}

bool CellEditor::focusNextPrevChild(bool) {
    return false;
}

void CellEditor::openList(const QRect& cell, const QString& typed) {
    if (list_)
        return;
    list_ = new ChoicePopup(this, host_, choices_);
    list_->openAt(cell, text(), typed);
}

ChoicePopup::ChoicePopup(CellEditor* editor, EditorHost& host, const QString& choices)
    : QFrame(editor, Qt::Popup), host_(host), entries_(new QTreeWidget(this)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setFrameShape(QFrame::Box);
    setObjectName(QStringLiteral("choiceList"));
    setFont(editor->font());
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(entries_);
    entries_->setColumnCount(2);
    entries_->setHeaderHidden(true);
    entries_->setRootIsDecorated(false);
    entries_->setUniformRowHeights(true);
    entries_->setAllColumnsShowFocus(true);
    entries_->setFrameShape(QFrame::NoFrame);
    entries_->setMinimumHeight(1); // a short list is as high as its lines
    entries_->setMouseTracking(true);
    entries_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    entries_->header()->setStretchLastSection(true);
    entries_->setAccessibleName(tr("Choices"));
    const QFontMetrics metrics(font());
    const auto roomFor = [&](const QString& text) {
        return QSize(metrics.horizontalAdvance(text) + 2 * lineGap, metrics.height() + lineGap);
    };
    for (const Choice& choice : splitChoices(choices)) {
        auto* const item = new QTreeWidgetItem({choice.name, choice.remark});
        item->setSizeHint(0, roomFor(choice.name));
        item->setSizeHint(1, roomFor(choice.remark));
        entries_->addTopLevelItem(item);
    }
    entries_->installEventFilter(this);
    connect(entries_, &QTreeWidget::itemClicked, this, [this] { choose(); });
    connect(entries_, &QTreeWidget::itemEntered, this,
            [this](QTreeWidgetItem* item) { entries_->setCurrentItem(item); });
}

void ChoicePopup::openAt(const QRect& cell, const QString& current, const QString& typed) {
    entries_->resizeColumnToContents(0);
    entries_->resizeColumnToContents(1);
    entries_->setColumnWidth(0, entries_->columnWidth(0) + columnGap);
    const int count = entries_->topLevelItemCount();
    const int line = std::max(1, entries_->sizeHintForRow(0));
    const int frame = 2 * frameWidth();
    QSize size(entries_->columnWidth(0) + entries_->columnWidth(1) + frame,
               std::clamp(count, 1, longestList) * line + frame);
    if (count > longestList)
        size.rwidth() += entries_->verticalScrollBar()->sizeHint().width();
    size.setWidth(std::max(size.width(), cell.width()));
    const QRect room = screen()->availableGeometry();
    size = size.boundedTo(room.size());
    QPoint place = cell.bottomLeft() + QPoint(0, 1);
    if (place.y() + size.height() > room.bottom() + 1)
        place.setY(std::max(room.top(), cell.top() - size.height()));
    place.setX(
        std::clamp(place.x(), room.left(), std::max(room.left(), room.right() + 1 - size.width())));
    setGeometry(QRect(place, size));
    const auto found = entries_->findItems(current, Qt::MatchExactly | Qt::MatchCaseSensitive);
    entries_->setCurrentItem(found.isEmpty() ? entries_->topLevelItem(0) : found.front());
    show();
    entries_->setFocus(Qt::PopupFocusReason);
    if (!typed.isEmpty())
        entries_->keyboardSearch(typed);
}

bool ChoicePopup::key(QKeyEvent* event) {
    const bool alt = event->modifiers().testFlag(Qt::AltModifier);
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
        choose();
        return true;
    case Qt::Key_Escape:
    case Qt::Key_F4:
        close();
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (alt)
            close();
        return alt;
    default:
        return false;
    }
}

bool ChoicePopup::eventFilter(QObject* watched, QEvent* event) {
    if (watched == entries_ && event->type() == QEvent::KeyPress)
        return key(static_cast<QKeyEvent*>(event));
    return QFrame::eventFilter(watched, event);
}

void ChoicePopup::choose() {
    const QTreeWidgetItem* const item = entries_->currentItem();
    if (item == nullptr || done_)
        return;
    const QString name = item->text(0);
    done_ = true;
    close();
    host_.choiceMade(name);
}

void ChoicePopup::hideEvent(QHideEvent* event) {
    QFrame::hideEvent(event);
    if (!std::exchange(done_, true))
        host_.choiceDropped();
}

} // namespace partwright::grid
