#pragma once

// The main window: the two library pages on the left, the commands on the right. It shows what
// MainSession holds and hands every press to it.

#include "dialogs/page_widgets.h"
#include "dialogs/services.h"
#include "editing/main_session.h"
#include "grid/grid_core.h"

#include <QDialog>
#include <QPushButton>
#include <QTabWidget>
#include <array>
#include <map>
#include <memory>

class QBoxLayout;
class QRadioButton;

namespace partwright {

/// The sheet with the pages.
class CPropSheetList : public QTabWidget {
    Q_OBJECT

public:
    using QTabWidget::QTabWidget;
};

class CAboutDlg : public QDialog {
    Q_OBJECT

public:
    explicit CAboutDlg(QWidget* parent = nullptr);
};

class CPartwrightPlugInDlg : public QDialog {
    Q_OBJECT

public:
    CPartwrightPlugInDlg(MainSession& session, const DialogServices& services,
                         QWidget* parent = nullptr);

public Q_SLOTS:
    /// OK: saves all, and closes unless a write failed.
    void accept() override;

protected:
    /// Escape closes only while nothing is unsaved: one press too many must not cost the work.
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// Keys that turn the pages, and the entry that tells about the program.
    void addKeys();
    CLibraryPage& activePageWidget();
    QBoxLayout* makeCommands();
    QWidget* makeLibraryTypeBox();
    QWidget* makeFillBox();
    QPushButton* addCommand(QBoxLayout* layout, MainCommand command, const QString& caption,
                            const QString& image, const QString& toolTip, const QString& name);
    void run(MainCommand command);
    /// A group of a page is to be edited; `page` is 0 for SDTA and 1 for Analyses.
    /// With `part` its row is current.
    void openGroup(int page, int group, const QString& part = {});
    void openNewComponents(int page, const QString& part);
    void openPart(int page, const QString& part);
    void showAll();
    void showCommands();

    MainSession& session_;
    DialogServices services_;
    /// By page: the directions in which component tables were sorted last.
    std::array<std::shared_ptr<grid::SortFlags>, MainSession::pageCount> sortFlags_;
    CPropSheetList* propertySheet_ = nullptr;
    CSDTAPage* sdtaPage_ = nullptr;
    CASRPage* asrPage_ = nullptr;
    std::map<MainCommand, QPushButton*> commands_;
    /// The directions in which the table of new parts was sorted last.
    std::shared_ptr<grid::SortFlags> newComponentSort_ = std::make_shared<grid::SortFlags>();
};

} // namespace partwright
