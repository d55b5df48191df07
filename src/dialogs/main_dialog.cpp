#include "dialogs/main_dialog.h"

#include "dialogs/change_dialog.h"
#include "dialogs/image_icon.h"
#include "dialogs/look.h"
#include "dialogs/new_component_dialog.h"
#include "dialogs/qt_text.h"
#include "dialogs/wait_cursor.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QRadioButton>
#include <QScreen>
#include <QShortcut>
#include <QTabBar>
#include <QVBoxLayout>

namespace partwright {

namespace {

/// Commands whose work this version does not do yet; their buttons stand in their places.
bool isAvailable(MainCommand command) {
    return command == MainCommand::SaveLibrary || command == MainCommand::GroupLibrary ||
           command == MainCommand::DescriptionParsing;
}

} // namespace

CAboutDlg::CAboutDlg(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("About Partwright_PlugIn"));
    setObjectName(QStringLiteral("aboutDialog"));
    auto* column = new QVBoxLayout(this);
    auto* row = new QHBoxLayout;
    auto* picture = new QLabel(this);
    picture->setObjectName(QStringLiteral("programIcon"));
    picture->setAccessibleName(tr("Partwright"));
    const int side = fontMetrics().height() * 3;
    picture->setPixmap(
        imageIcon(QStringLiteral("partwright.svg")).pixmap(QSize(side, side), devicePixelRatioF()));
    row->addWidget(picture);
    row->addWidget(new QLabel(tr("Partwright_PlugIn, Version 1.0"), this), 1);
    column->addLayout(row);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("ok"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    column->addWidget(buttons);
}

CPartwrightPlugInDlg::CPartwrightPlugInDlg(MainSession& session, const DialogServices& services,
                                           QWidget* parent)
    : QDialog(parent), session_(session), services_(services) {
    for (auto& flags : sortFlags_)
        flags = std::make_shared<grid::SortFlags>();
    look::initialiseImages();
    setWindowTitle(tr("Partwright"));
    setWindowIcon(imageIcon(QStringLiteral("partwright.svg")));
    setObjectName(QStringLiteral("mainDialog"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setSizeGripEnabled(true);
    auto* row = new QHBoxLayout(this);
    propertySheet_ = new CPropSheetList(this);
    propertySheet_->setObjectName(QStringLiteral("propertySheet"));
    propertySheet_->tabBar()->setObjectName(QStringLiteral("pageTabs"));
    propertySheet_->tabBar()->setAccessibleName(tr("Libraries"));
    sdtaPage_ = new CSDTAPage(session_.sdtaPage, propertySheet_);
    asrPage_ = new CASRPage(session_.asrPage, propertySheet_);
    propertySheet_->addTab(sdtaPage_, tr("SDTA"));
    propertySheet_->addTab(asrPage_, tr("Analyses"));
    row->addWidget(propertySheet_, 1);
    row->addLayout(makeCommands());
    addKeys();

    propertySheet_->setCurrentIndex(session_.activePage());
    connect(propertySheet_, &QTabWidget::currentChanged, this, [this](int index) {
        session_.setActivePage(index);
        showCommands();
        if (!propertySheet_->tabBar()->hasFocus())
            activePageWidget().list()->setFocus();
    });
    connect(sdtaPage_, &CLibraryPage::changed, this, [this] { showCommands(); });
    connect(asrPage_, &CLibraryPage::changed, this, [this] { showCommands(); });
    connect(sdtaPage_, &CLibraryPage::groupOpened, this,
            [this](int group) { openGroup(0, group); });
    connect(asrPage_, &CLibraryPage::groupOpened, this, [this](int group) { openGroup(1, group); });
    connect(sdtaPage_, &CLibraryPage::partOpened, this,
            [this](const QString& part) { openPart(0, part); });
    connect(asrPage_, &CLibraryPage::partOpened, this,
            [this](const QString& part) { openPart(1, part); });
    showAll();
    const QSize wanted(fontMetrics().averageCharWidth() * 150, fontMetrics().height() * 46);
    resize(wanted.boundedTo(screen()->availableSize() * 9 / 10));
    activePageWidget().list()->setFocus();
}

CLibraryPage& CPartwrightPlugInDlg::activePageWidget() {
    if (session_.activePage() == 0)
        return *sdtaPage_;
    return *asrPage_;
}

void CPartwrightPlugInDlg::addKeys() {
    // The sheet itself hears these keys only while it has the focus.
    const auto turnPage = [this](const QList<QKeySequence>& keys, int step) {
        for (const QKeySequence& key : keys)
            connect(new QShortcut(key, this), &QShortcut::activated, this, [this, step] {
                const int count = propertySheet_->count();
                propertySheet_->setCurrentIndex((propertySheet_->currentIndex() + step + count) %
                                                count);
            });
    };
    turnPage({Qt::CTRL | Qt::Key_Tab, Qt::CTRL | Qt::Key_PageDown}, 1);
    turnPage({Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab, Qt::CTRL | Qt::SHIFT | Qt::Key_Tab,
              Qt::CTRL | Qt::Key_PageUp},
             -1);
    connect(new QShortcut(QKeySequence::Undo, this), &QShortcut::activated, this,
            [this] { activePageWidget().takeBackFill(); });
    auto* about = new QAction(tr("&About Partwright_PlugIn..."), this);
    about->setObjectName(QStringLiteral("about"));
    about->setShortcut(Qt::Key_F1);
    connect(about, &QAction::triggered, this, [this] { CAboutDlg(this).exec(); });
    addAction(about);
    setContextMenuPolicy(Qt::ActionsContextMenu);
}

// Nothing here has a parent before the whole column has one, so that the Tab key goes down the
// column.
QBoxLayout* CPartwrightPlugInDlg::makeCommands() {
    auto* column = new QVBoxLayout;
    column->addWidget(makeLibraryTypeBox());
    addCommand(column, MainCommand::SaveLibrary, tr("Save &Library"), QStringLiteral("save.svg"),
               tr("Saves Library Values to File"), QStringLiteral("saveLibrary"));
    addCommand(column, MainCommand::ImportLibrary, tr("&Import Library"),
               QStringLiteral("import.svg"), QString(), QStringLiteral("importLibrary"));
    addCommand(column, MainCommand::ExportLibrary, tr("&Export Library"),
               QStringLiteral("export.svg"), QString(), QStringLiteral("exportLibrary"));
    addCommand(column, MainCommand::AddToPublicLibrary, tr("Add to Public Library"),
               QStringLiteral("add_public.svg"), QString(), QStringLiteral("addToPublicLibrary"));
    column->addWidget(makeFillBox());
    addCommand(column, MainCommand::RequestLibrary, tr("Request Library"),
               QStringLiteral("request.svg"), tr("Request Library from Varnel"),
               QStringLiteral("requestLibrary"));
    addCommand(column, MainCommand::SyncLibraries, tr("Sync Libraries"), QStringLiteral("sync.svg"),
               tr("Compare parameter values for the same Part Numbers."),
               QStringLiteral("syncLibraries"));
    addCommand(column, MainCommand::SelectDatasheetFolder, tr("Select Datasheet folder"),
               QStringLiteral("folder.svg"), tr("Selecting the folder path containing PDF files."),
               QStringLiteral("selectDatasheetFolder"));
    addCommand(column, MainCommand::ClearLibrary, tr("Clear Library"), QStringLiteral("clear.svg"),
               tr("Clear Design Libraries by selected parameters."),
               QStringLiteral("clearLibrary"));
    column->addStretch(1);
    QPushButton* ok = look::imageButton(tr("OK"), QStringLiteral("ok.svg"),
                                        tr("Saves Library Values"), QStringLiteral("ok"));
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &CPartwrightPlugInDlg::accept);
    QPushButton* cancel = look::imageButton(tr("Cancel"), QStringLiteral("cancel.svg"), QString(),
                                            QStringLiteral("cancel"));
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    column->addWidget(ok);
    column->addWidget(cancel);
    return column;
}

QWidget* CPartwrightPlugInDlg::makeLibraryTypeBox() {
    auto* box = new QGroupBox(tr("Library Type:"));
    box->setObjectName(QStringLiteral("libraryTypeBox"));
    auto* row = new QHBoxLayout(box);
    const auto addType = [&](const QString& caption, const QString& name, bool design) {
        auto* radio = new QRadioButton(caption, box);
        radio->setObjectName(name);
        radio->setChecked(session_.isDesign() == design);
        connect(radio, &QRadioButton::clicked, this, [this, design] {
            const WaitCursor wait;
            session_.setLibraryType(design);
            showAll();
        });
        row->addWidget(radio);
    };
    addType(tr("Design"), QStringLiteral("design"), true);
    addType(tr("Public"), QStringLiteral("public"), false);
    return box;
}

QWidget* CPartwrightPlugInDlg::makeFillBox() {
    auto* box = new QGroupBox(tr("Auto-Fill Library Missing Values:"));
    box->setObjectName(QStringLiteral("fillBox"));
    auto* column = new QVBoxLayout(box);
    addCommand(
        column, MainCommand::GroupLibrary, tr("Group Library"), QStringLiteral("group_library.svg"),
        tr("Run Group Library Alghorithm to Set Empty Parameters"), QStringLiteral("groupLibrary"));
    addCommand(column, MainCommand::DescriptionParsing, tr("Description Parsing"),
               QStringLiteral("description.svg"),
               tr("Set All Empty Library Values as Description Parsed"),
               QStringLiteral("descriptionParsing"));
    addCommand(column, MainCommand::ImportFromPublicLibrary, tr("Import from Public Library"),
               QStringLiteral("import_public.svg"), QString(),
               QStringLiteral("importFromPublicLibrary"));
    return box;
}

QPushButton* CPartwrightPlugInDlg::addCommand(QBoxLayout* layout, MainCommand command,
                                              const QString& caption, const QString& image,
                                              const QString& toolTip, const QString& name) {
    QPushButton* button = look::imageButton(caption, image, toolTip, name);
    connect(button, &QPushButton::clicked, this, [this, command] { run(command); });
    layout->addWidget(button);
    commands_[command] = button;
    return button;
}

void CPartwrightPlugInDlg::run(MainCommand command) {
    const WaitCursor wait;
    switch (command) {
    case MainCommand::SaveLibrary:
        session_.saveActivePage();
        if (session_.activePage() == 0) // the Analyses page's list stays as it is
            sdtaPage_->showSession();
        break;
    case MainCommand::GroupLibrary:
        session_.runGroupLibrary();
        showAll();
        break;
    case MainCommand::DescriptionParsing:
        session_.parseDescriptions();
        showAll();
        break;
    default:
        break;
    }
}

void CPartwrightPlugInDlg::openPart(int page, const QString& part) {
    const int group = session_.page(page).reveal(engineText(part));
    showAll(); // the filter may be another one
    openGroup(page, group, part);
}

void CPartwrightPlugInDlg::openGroup(int page, int group, const QString& part) {
    if (group == 0) {
        openNewComponents(page, part);
        return;
    }
    PageSession& owner = session_.page(page);
    const auto components = owner.openGroup(group);
    CComChange1 dialog(*components, services_, sortFlags_[static_cast<std::size_t>(page)], this);
    dialog.showPart(part);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const WaitCursor wait;
    owner.storeGroup(*components);
    showAll();
}

void CPartwrightPlugInDlg::openNewComponents(int page, const QString& part) {
    const auto table = session_.page(page).openNewComponents();
    CNewComp1 dialog(*table, services_, newComponentSort_, this);
    dialog.showPart(part);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const WaitCursor wait;
    session_.storeNewComponents(page, *table);
    showAll();
}

void CPartwrightPlugInDlg::showAll() {
    sdtaPage_->showSession();
    asrPage_->showSession();
    showCommands();
}

void CPartwrightPlugInDlg::showCommands() {
    for (const auto& [command, button] : commands_)
        button->setEnabled(isAvailable(command) && session_.isOffered(command));
}

void CPartwrightPlugInDlg::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Cancel) && session_.isUnsaved())
        event->accept();
    else
        QDialog::keyPressEvent(event);
}

void CPartwrightPlugInDlg::accept() {
    const WaitCursor wait;
    if (session_.closeWithOk())
        QDialog::accept();
    else
        showAll();
}

} // namespace partwright
