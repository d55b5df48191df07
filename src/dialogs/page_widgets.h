#pragma once

// The two tabs of the main window. A page shows the groups of one library with their counts; all
// that decides what counts is in its session (editing/page_session.h).

#include "editing/page_session.h"

#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTableWidget>
#include <QWidget>
#include <vector>

class QBoxLayout;
class QGroupBox;
class QPushButton;

namespace partwright {

/// The list of groups: whole rows, a told background, uncompleted counts in red.
class CMyListCtrl : public QTableWidget {
    Q_OBJECT

public:
    explicit CMyListCtrl(QWidget* parent = nullptr);

    /// Widths of the columns as fractions of the list's width when it is first shown.
    void setFractions(std::vector<double> fractions) { fractions_ = std::move(fractions); }
    void showLines(const std::vector<GroupCount>& lines, const PageSession& session);

Q_SIGNALS:
    /// Double click, Enter or Return on a line.
    void lineOpened(int row);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    std::vector<double> fractions_;
    bool painted_ = false;
};

class CLibraryPage : public QWidget {
    Q_OBJECT

public:
    CLibraryPage(PageSession& session, QString prefix, QWidget* parent);

    /// Shows what the session holds now.
    void showSession();
    /// The last auto-fill command of this page is undone; nothing when there is none.
    void takeBackFill();
    CMyListCtrl* list() { return list_; }

Q_SIGNALS:
    /// The filter or the counts have changed.
    void changed();
    /// A group was asked to be opened; `group` is its number.
    void groupOpened(int group);
    /// A part was asked to be shown in its group.
    void partOpened(const QString& part);

protected:
    QRadioButton* addFilterRadio(QBoxLayout* layout, PageFilter filter, const QString& text,
                                 const QString& name);
    /// The page's own group boxes stand in this row above the list.
    QBoxLayout* optionsRow() { return optionsRow_; }
    QGroupBox* makeBox(const QString& title, const QString& name);
    [[nodiscard]] QString objectName(const char* suffix) const;
    virtual void showOptions() {}

private:
    void addPathBox(QBoxLayout* column);
    void addStatusBox();
    /// Beside the path: how many lines of the file were not taken as they stand.
    void showLoadMark();
    void listLeftOut();
    /// Under the list: what the last auto-fill command did, "Show" and "Take back".
    void addFillLine();
    void showFillLine();
    void listFilledRecords();

    PageSession& session_;
    QString prefix_;
    QLineEdit* path_ = nullptr;
    QPushButton* loadMark_ = nullptr;
    QBoxLayout* optionsRow_ = nullptr;
    QLabel* statusPicture_ = nullptr;
    QLabel* statusText_ = nullptr;
    QLabel* partListNotice_ = nullptr;
    QWidget* fillRow_ = nullptr;
    QLabel* fillText_ = nullptr;
    QPushButton* showFill_ = nullptr;
    QPushButton* takeBack_ = nullptr;
    CMyListCtrl* list_ = nullptr;
    std::vector<std::pair<PageFilter, QRadioButton*>> filterRadios_;
    std::vector<int> groupOfRow_;

protected:
    /// Called by the derived pages once their boxes stand.
    void finishLayout();
};

class CSDTAPage final : public CLibraryPage {
    Q_OBJECT

public:
    explicit CSDTAPage(SdtaPageSession& session, QWidget* parent = nullptr);
};

class CASRPage final : public CLibraryPage {
    Q_OBJECT

public:
    explicit CASRPage(AsrPageSession& session, QWidget* parent = nullptr);

protected:
    void showOptions() override;

private:
    AsrPageSession& asrSession_;
    std::vector<std::pair<AnalysisLevel, QRadioButton*>> levelRadios_;
};

} // namespace partwright
