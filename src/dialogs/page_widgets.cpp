#include "dialogs/page_widgets.h"

#include "core/messages.h"
#include "dialogs/image_icon.h"
#include "dialogs/look.h"
#include "dialogs/qt_text.h"
#include "dialogs/row_list_dialog.h"
#include "dialogs/wait_cursor.h"
#include "library/part_key.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace partwright {

namespace {

enum Column { Number, Group, Quantity, Uncompleted, Family, ColumnCount };

QString text(std::int32_t number) {
    return QString::number(number);
}

QTableWidgetItem* cell(const QString& value) {
    auto* item = new QTableWidgetItem(value);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    item->setBackground(look::listBackground);
    item->setForeground(look::darkText);
    item->setToolTip(value);
    return item;
}

} // namespace

CMyListCtrl::CMyListCtrl(QWidget* parent) : QTableWidget(0, ColumnCount, parent) {
    setHorizontalHeaderLabels({QStringLiteral("NN"), QStringLiteral("Group"),
                               QStringLiteral("Quantity"), QStringLiteral("Uncompleted"),
                               QStringLiteral("Family")});
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // the columns share what it leaves
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
    verticalHeader()->hide();
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    look::paintList(*this);
    look::paintHeader(*horizontalHeader());
    connect(this, &QTableWidget::cellDoubleClicked, this,
            [this](int row) { Q_EMIT lineOpened(row); });
}

void CMyListCtrl::showLines(const std::vector<GroupCount>& lines, const PageSession& session) {
    const int current = currentRow();
    QFont bold = font();
    bold.setBold(true);
    setUpdatesEnabled(false);
    setRowCount(static_cast<int>(lines.size()));
    for (int row = 0; row < rowCount(); ++row) {
        const GroupCount& line = lines[static_cast<std::size_t>(row)];
        const std::int32_t uncompleted = session.uncompletedOf(line);
        setItem(row, Number, cell(text(line.shownNumber)));
        setItem(row, Group, cell(QString::fromStdWString(line.name)));
        setItem(row, Quantity, cell(text(line.quantity)));
        setItem(row, Uncompleted, cell(text(uncompleted)));
        setItem(row, Family, cell(QString::fromStdWString(line.family)));
        if (uncompleted != 0) {
            QTableWidgetItem* count = item(row, Uncompleted);
            count->setForeground(look::alarmText);
            count->setFont(bold); // not by colour alone
            count->setData(Qt::AccessibleTextRole, tr("%1 uncompleted").arg(uncompleted));
        }
    }
    setUpdatesEnabled(true);
    if (rowCount() > 0)
        setCurrentCell(std::clamp(current, 0, rowCount() - 1), 0);
}

void CMyListCtrl::keyPressEvent(QKeyEvent* event) {
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) && currentRow() >= 0)
        Q_EMIT lineOpened(currentRow());
    else
        QTableWidget::keyPressEvent(event);
}

void CMyListCtrl::resizeEvent(QResizeEvent* event) {
    QTableWidget::resizeEvent(event);
    if (!painted_) // the window still finds its size
        for (std::size_t i = 0; i < fractions_.size(); ++i)
            setColumnWidth(static_cast<int>(i),
                           static_cast<int>(fractions_[i] * viewport()->width()));
}

void CMyListCtrl::paintEvent(QPaintEvent* event) {
    painted_ = true;
    QTableWidget::paintEvent(event);
}

void CMyListCtrl::wheelEvent(QWheelEvent* event) {
    setFocus();
    QTableWidget::wheelEvent(event);
}

CLibraryPage::CLibraryPage(PageSession& session, QString prefix, QWidget* parent)
    : QWidget(parent), session_(session), prefix_(std::move(prefix)) {
    auto* column = new QVBoxLayout(this);
    addPathBox(column);
    optionsRow_ = new QHBoxLayout;
    column->addLayout(optionsRow_);
    list_ = new CMyListCtrl(this);
    list_->setObjectName(objectName("List"));
    list_->setAccessibleName(tr("Groups of the library"));
    connect(list_, &CMyListCtrl::lineOpened, this, [this](int row) {
        if (row >= 0 && static_cast<std::size_t>(row) < groupOfRow_.size())
            Q_EMIT groupOpened(groupOfRow_[static_cast<std::size_t>(row)]);
    });
}

void CLibraryPage::addPathBox(QBoxLayout* column) {
    QGroupBox* pathBox = makeBox(tr("Library file path:"), QStringLiteral("PathBox"));
    auto* row = new QHBoxLayout(pathBox);
    path_ = new QLineEdit(pathBox);
    path_->setReadOnly(true);
    path_->setObjectName(objectName("Path"));
    path_->setAccessibleName(tr("Library file path"));
    row->addWidget(path_);
    loadMark_ = new QPushButton(pathBox);
    loadMark_->setObjectName(objectName("LoadMark"));
    loadMark_->setFlat(true);
    connect(loadMark_, &QPushButton::clicked, this, &CLibraryPage::listLeftOut);
    row->addWidget(loadMark_);
    column->addWidget(pathBox);
}

void CLibraryPage::showLoadMark() {
    const LoadReport& report = session_.loadReport();
    const bool isFaulty = report.fault != LibraryFault::None;
    const QString lines = report.count() == 1 ? tr("1 line") : tr("%1 lines").arg(report.count());
    loadMark_->setText(isFaulty ? tr("Not understood") : tr("%1 not taken").arg(lines));
    const QString name = isFaulty
                             ? tr("This file was not understood and will not be written")
                             : tr("%1 of this file could not be taken as they stand").arg(lines);
    loadMark_->setAccessibleName(name);
    loadMark_->setToolTip(tr("%1; click for the list").arg(name));
    loadMark_->setVisible(isFaulty || report.count() > 0);
}

void CLibraryPage::listLeftOut() {
    const LoadReport& report = session_.loadReport();
    QString explanation;
    if (report.fault != LibraryFault::None)
        explanation = tr("This file will not be written: %1\n").arg(qtText(report.faultText));
    explanation += tr("Enter or a double click opens a part that is in the library.");
    if (report.count() > report.entries().size())
        explanation += tr(" The first %1 of %2 lines are listed.")
                           .arg(report.entries().size())
                           .arg(report.count());
    RowListDialog dialog({tr("Lines that were not taken as they stand"),
                          {tr("Line"), tr("Part Number"), tr("What is the matter")},
                          explanation},
                         this);
    std::vector<RowListModel::Row> rows;
    for (const LoadEntry& entry : report.entries())
        rows.push_back({entry.line == 0 ? std::wstring() : std::to_wstring(entry.line), entry.part,
                        message::causeText(entry)});
    dialog.setRows(std::move(rows));
    dialog.setChoosable(
        [&](std::size_t row) { return session_.hasPart(asReadBack(report.entries()[row].part)); });
    if (dialog.exec() == QDialog::Accepted && dialog.chosen() >= 0)
        Q_EMIT partOpened(
            qtText(asReadBack(report.entries()[static_cast<std::size_t>(dialog.chosen())].part)));
}

QString CLibraryPage::objectName(const char* suffix) const {
    return prefix_ + QLatin1String(suffix);
}

QGroupBox* CLibraryPage::makeBox(const QString& title, const QString& name) {
    auto* box = new QGroupBox(title, this);
    box->setObjectName(prefix_ + name);
    return box;
}

QRadioButton* CLibraryPage::addFilterRadio(QBoxLayout* layout, PageFilter filter,
                                           const QString& caption, const QString& name) {
    auto* radio = new QRadioButton(caption);
    radio->setObjectName(prefix_ + name);
    layout->addWidget(radio);
    filterRadios_.emplace_back(filter, radio);
    connect(radio, &QRadioButton::clicked, this, [this, filter] {
        if (session_.filter() == filter)
            return;
        const WaitCursor wait;
        session_.setFilter(filter);
        session_.refresh();
        showSession();
        Q_EMIT changed();
    });
    return radio;
}

void CLibraryPage::addStatusBox() {
    QGroupBox* box = makeBox(tr("Library Completeness Status:"), QStringLiteral("StatusBox"));
    auto* row = new QHBoxLayout(box);
    statusPicture_ = new QLabel(box);
    statusPicture_->setObjectName(objectName("StatusPicture"));
    statusText_ = new QLabel(box);
    statusText_->setObjectName(objectName("StatusText"));
    statusText_->setWordWrap(true);
    row->addWidget(statusPicture_);
    auto* texts = new QVBoxLayout;
    texts->addWidget(statusText_);
    partListNotice_ = new QLabel(box);
    partListNotice_->setObjectName(objectName("PartListNotice"));
    partListNotice_->setTextFormat(Qt::PlainText);
    partListNotice_->setWordWrap(true);
    texts->addWidget(partListNotice_);
    row->addLayout(texts, 1);
    optionsRow_->addWidget(box, 1);
}

void CLibraryPage::finishLayout() {
    addStatusBox();
    layout()->addWidget(list_);
    qobject_cast<QVBoxLayout*>(layout())->setStretchFactor(list_, 1);
    addFillLine();
    // As the eye goes: path, options, list.
    setTabOrder(path_, loadMark_);
    QWidget* before = loadMark_;
    for (QRadioButton* radio : findChildren<QRadioButton*>()) {
        setTabOrder(before, radio);
        before = radio;
    }
    setTabOrder(before, list_);
    setTabOrder(list_, showFill_);
    setTabOrder(showFill_, takeBack_);
}

void CLibraryPage::addFillLine() {
    fillRow_ = new QWidget(this);
    auto* row = new QHBoxLayout(fillRow_);
    row->setContentsMargins(0, 0, 0, 0);
    fillText_ = new QLabel(fillRow_);
    fillText_->setObjectName(objectName("FillText"));
    fillText_->setWordWrap(true);
    fillText_->setTextFormat(Qt::PlainText);
    row->addWidget(fillText_, 1);
    showFill_ = look::imageButton(tr("Sho&w"), QStringLiteral("list.svg"), QString(),
                                  objectName("FillShow"));
    takeBack_ = look::imageButton(tr("&Take back"), QStringLiteral("undo.svg"), QString(),
                                  objectName("FillTakeBack"));
    for (QPushButton* button : {showFill_, takeBack_}) {
        button->setAutoDefault(false); // Enter in the list opens a group
        row->addWidget(button);
    }
    connect(showFill_, &QPushButton::clicked, this, &CLibraryPage::listFilledRecords);
    connect(takeBack_, &QPushButton::clicked, this, &CLibraryPage::takeBackFill);
    layout()->addWidget(fillRow_);
}

void CLibraryPage::showFillLine() {
    fillRow_->setVisible(session_.isDesign() && !session_.fillLine().empty());
    fillText_->setText(QString::fromStdWString(session_.fillLine()));
    const QString command = QString::fromStdWString(std::wstring(session_.filledBy()));
    showFill_->setToolTip(tr("Lists every value that \"%1\" changed").arg(command));
    takeBack_->setToolTip(
        tr("Sets the parts that \"%1\" changed back to what they were (Ctrl+Z)").arg(command));
    for (QPushButton* button : {showFill_, takeBack_})
        button->setVisible(session_.canTakeBackFill());
}

void CLibraryPage::listFilledRecords() {
    const std::vector<FilledRecord> records = session_.filledRecords();
    QStringList headings = {tr("Part Number"), tr("Parameter"), tr("Old"), tr("New")};
    if (std::any_of(records.begin(), records.end(),
                    [](const FilledRecord& record) { return record.changedSince; }))
        headings << tr("Remark");
    std::vector<RowListModel::Row> rows;
    for (const FilledRecord& record : records)
        for (const FieldChange& field : record.change.fields)
            rows.push_back({record.change.partNumber, field.name, field.before, field.after,
                            record.changedSince ? tr("changed since").toStdWString() : L""});
    RowListDialog dialog(
        {QString::fromStdWString(std::wstring(session_.filledBy())), headings, QString()}, this);
    dialog.setRows(std::move(rows));
    dialog.exec();
}

void CLibraryPage::takeBackFill() {
    if (!session_.canTakeBackFill())
        return;
    {
        const WaitCursor wait;
        session_.takeBackFill();
        showSession();
    }
    list_->setFocus(); // the button may be gone
    Q_EMIT changed();
}

void CLibraryPage::showSession() {
    const std::vector<GroupCount> lines = session_.counts();
    std::int32_t total = 0;
    std::int32_t uncompleted = 0;
    groupOfRow_.clear();
    for (const GroupCount& line : lines) {
        total += line.quantity;
        uncompleted += session_.uncompletedOf(line);
        groupOfRow_.push_back(line.group);
    }
    list_->showLines(lines, session_);
    const QIcon mark = imageIcon(uncompleted == 0 ? QStringLiteral("status_complete.svg")
                                                  : QStringLiteral("status_uncompleted.svg"));
    const int side = fontMetrics().height() * 3 / 2;
    statusPicture_->setPixmap(mark.pixmap(QSize(side, side), devicePixelRatioF()));
    const QString status = QString::fromStdWString(message::completenessStatus(uncompleted, total));
    statusText_->setText(status);
    statusPicture_->setAccessibleName(status);
    const QString notice = QString::fromStdWString(session_.partListFault());
    partListNotice_->setText(notice);
    partListNotice_->setVisible(!notice.isEmpty());
    path_->setText(QString::fromStdWString(session_.libraryPath()));
    path_->setToolTip(path_->text());
    for (const auto& [filter, radio] : filterRadios_) {
        radio->setChecked(session_.filter() == filter);
        radio->setEnabled(session_.isDesign() || filter == PageFilter::FullLibrary);
    }
    showLoadMark();
    showFillLine();
    showOptions();
}

CSDTAPage::CSDTAPage(SdtaPageSession& session, QWidget* parent)
    : CLibraryPage(session, QStringLiteral("sdta"), parent) {
    QGroupBox* box = makeBox(tr("Library Components:"), QStringLiteral("FilterBox"));
    auto* column = new QVBoxLayout(box);
    addFilterRadio(column, PageFilter::SelectedOnly, tr("Selected Only"),
                   QStringLiteral("SelectedOnly"));
    addFilterRadio(column, PageFilter::AllProject, tr("All Project"), QStringLiteral("AllProject"));
    addFilterRadio(column, PageFilter::FullLibrary, tr("Full Library"),
                   QStringLiteral("FullLibrary"));
    optionsRow()->addWidget(box);
    list()->setFractions({0.10, 0.25, 0.15, 0.22, 0.27});
    finishLayout();
}

CASRPage::CASRPage(AsrPageSession& session, QWidget* parent)
    : CLibraryPage(session, QStringLiteral("asr"), parent), asrSession_(session) {
    QGroupBox* filterBox = makeBox(tr("Library Components:"), QStringLiteral("FilterBox"));
    auto* filters = new QVBoxLayout(filterBox);
    addFilterRadio(filters, PageFilter::AllProject, tr("Project Only"),
                   QStringLiteral("ProjectOnly"));
    addFilterRadio(filters, PageFilter::FullLibrary, tr("Full Library"),
                   QStringLiteral("FullLibrary"));
    optionsRow()->addWidget(filterBox);

    QGroupBox* levelBox = makeBox(tr("Library Completeness Level:"), QStringLiteral("LevelBox"));
    auto* levels = new QVBoxLayout(levelBox);
    const auto addLevel = [&](AnalysisLevel level, const QString& caption, const char* name) {
        auto* radio = new QRadioButton(caption, levelBox);
        radio->setObjectName(objectName(name));
        levels->addWidget(radio);
        levelRadios_.emplace_back(level, radio);
        connect(radio, &QRadioButton::clicked, this, [this, level] {
            if (asrSession_.level() == level)
                return;
            const WaitCursor wait;
            asrSession_.setLevel(level);
            asrSession_.refresh();
            showSession();
            Q_EMIT changed();
        });
    };
    addLevel(AnalysisLevel::SchematicReview, tr("Schematic Review (ASR)"), "LevelAsr");
    addLevel(AnalysisLevel::Rapid, tr("Auto Stress Calculation (Rapid )"), "LevelRapid");
    addLevel(AnalysisLevel::Full, tr("Tessara (Full)"), "LevelFull");
    optionsRow()->addWidget(levelBox);
    list()->setFractions({0.10, 0.25, 0.15, 0.22, 0.24});
    finishLayout();
}

void CASRPage::showOptions() {
    for (const auto& [level, radio] : levelRadios_)
        radio->setChecked(asrSession_.level() == level);
}

} // namespace partwright
