#include "dialogs/new_component_dialog.h"

#include "dialogs/look.h"
#include "dialogs/new_component_grid.h"
#include "dialogs/qt_text.h"
#include "editing/open_datasheet.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace partwright {

namespace {

constexpr int firstColumns = 201;
constexpr int firstLines = 32;

} // namespace

CNewComp1::CNewComp1(NewComponentTable& table, const DialogServices& services,
                     std::shared_ptr<grid::SortFlags> sortFlags, QWidget* parent)
    : QDialog(parent), services_(services) {
    look::initialiseImages();
    setWindowTitle(tr("New component group assignment"));
    setObjectName(QStringLiteral("newComponentDialog"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setSizeGripEnabled(true);
    auto* column = new QVBoxLayout(this);
    grid_ = new CNewComponentGrid(table, std::move(sortFlags), this);
    grid_->setObjectName(QStringLiteral("newComponentGrid"));
    grid_->setAccessibleName(tr("Components without a group"));
    grid_->setPrintTitle(windowTitle());
    connect(grid_, &CNewComponentGrid::datasheetOpened, this, [this](const QString& file) {
        OpenDatasheet(services_.app.paths, engineText(file), services_.prompt, services_.opener);
    });
    column->addWidget(grid_, 1);
    column->addLayout(makeButtons());
    const QSize first(fontMetrics().averageCharWidth() * firstColumns,
                      fontMetrics().height() * firstLines);
    setMinimumSize(first.boundedTo(screen()->availableSize() * 9 / 10));
    resize(minimumSize());
    layout()->activate(); // the grid scrolls by the size it will have
    grid_->setCurrentCell(1, CNewComponentGrid::Family);
    grid_->setFocus();
}

QBoxLayout* CNewComp1::makeButtons() {
    auto* row = new QHBoxLayout;
    // Searching for data sheets is not there yet; the buttons stand in their places.
    auto* box = new QGroupBox(tr("Datasheet"), this);
    box->setObjectName(QStringLiteral("datasheetBox"));
    auto* boxRow = new QHBoxLayout(box);
    QPushButton* search = look::imageButton(tr("Search"), QStringLiteral("datasheet_search.svg"),
                                            QString(), QStringLiteral("datasheetSearch"));
    QPushButton* refresh = look::imageButton(tr("Refresh"), QStringLiteral("refresh.svg"),
                                             QString(), QStringLiteral("datasheetRefresh"));
    QPushButton* web =
        look::imageButton(tr("Web Search AI Driven"), QStringLiteral("web_search.svg"), QString(),
                          QStringLiteral("webSearch"));
    for (QPushButton* button : {search, refresh, web})
        button->setEnabled(false);
    boxRow->addWidget(search);
    boxRow->addWidget(refresh);
    row->addWidget(box);
    // The other buttons stand on the line of those in the box.
    auto* line = new QHBoxLayout;
    line->setContentsMargins(0, 0, 0, boxRow->contentsMargins().bottom());
    row->addLayout(line, 1);
    line->addWidget(web, 0, Qt::AlignBottom);
    line->addStretch(1);
    QPushButton* ok =
        look::imageButton(tr("OK"), QStringLiteral("ok.svg"), QString(), QStringLiteral("ok"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &CNewComp1::accept);
    QPushButton* cancel = look::imageButton(tr("Cancel"), QStringLiteral("cancel.svg"), QString(),
                                            QStringLiteral("cancel"));
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    line->addWidget(ok, 0, Qt::AlignBottom);
    line->addWidget(cancel, 0, Qt::AlignBottom);
    return row;
}

void CNewComp1::showPart(const QString& part) {
    for (int row = 1; row <= grid_->rowCount(); ++row)
        if (grid_->text(row, CNewComponentGrid::PartNumber) == part)
            grid_->setCurrentCell(row, CNewComponentGrid::PartNumber);
}

void CNewComp1::accept() {
    if (grid_->commitEdit())
        QDialog::accept();
}

} // namespace partwright
