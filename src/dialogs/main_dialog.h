#pragma once

// The main window: the two library pages on the left, the commands on the right. It shows what
// MainSession holds and hands every press to it.

#include "dialogs/page_widgets.h"
#include "editing/main_session.h"

#include <QDialog>
#include <QPushButton>
#include <QTabWidget>
#include <map>

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
    explicit CPartwrightPlugInDlg(MainSession& session, QWidget* parent = nullptr);

public Q_SLOTS:
    /// OK: saves all, and closes unless a write failed.
    void accept() override;

Q_SIGNALS:
    /// A group of a page is to be edited; `page` is 0 for SDTA and 1 for Analyses.
    void groupOpened(int page, int group);

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
    void showAll();
    void showCommands();

    MainSession& session_;
    CPropSheetList* propertySheet_ = nullptr;
    CSDTAPage* sdtaPage_ = nullptr;
    CASRPage* asrPage_ = nullptr;
    std::map<MainCommand, QPushButton*> commands_;
};

} // namespace partwright
