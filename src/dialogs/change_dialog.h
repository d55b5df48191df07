#pragma once

// The Change Component dialog: all components of one group in a table, and the commands around it.
// It shows a TableSession, which decides everything, and drops it with all work unless OK goes
// through. One window serves both kinds of library; what sets them apart is in the session.
//
//     auto session = page.openGroup(group);
//     CComChange1 dialog(*session, services, flags, parent);
//     if (dialog.exec() == QDialog::Accepted)
//         page.storeGroup(*session);
//
// Another window may ask it to search: send it a SearchRequest.

#include "dialogs/component_grid.h"
#include "dialogs/services.h"
#include "editing/new_component_session.h"

#include <QDialog>
#include <QEvent>
#include <memory>
#include <optional>

class QBoxLayout;
class QLabel;
class QPushButton;

namespace partwright {

class FindBar;

/// The message 0x40F with a text "column_mode_direction_text" (TableSession::search).
class SearchRequest final : public QEvent {
public:
    static constexpr auto messageNumber = static_cast<QEvent::Type>(0x40F);
    static_assert(messageNumber >= QEvent::User && messageNumber <= QEvent::MaxUser);

    explicit SearchRequest(std::wstring text) : QEvent(messageNumber), text_(std::move(text)) {}
    [[nodiscard]] const std::wstring& text() const { return text_; }

private:
    std::wstring text_;
};

class CComChange1 : public QDialog {
    Q_OBJECT

public:
    CComChange1(TableSession& session, const DialogServices& services,
                std::shared_ptr<grid::SortFlags> flags, QWidget* parent = nullptr);

    [[nodiscard]] CComponentGrid& grid() { return *grid_; }
    /// Makes the row of a part current; nothing without such a row.
    void showPart(const QString& part);

public Q_SLOTS:
    /// OK: the checks of all rows; the dialog ends when nothing stops them.
    void accept() override;
    void done(int result) override;

protected:
    void customEvent(QEvent* event) override;
    /// Escape takes one step back, and closes the table only when there is none left.
    void keyPressEvent(QKeyEvent* event) override;

private:
    void makeControls(QBoxLayout* column);
    void makeShortcuts();
    QPushButton* addButton(QBoxLayout* layout, const QString& caption, const QString& image,
                           const QString& toolTip, const QString& name);
    /// A button whose work this version does not do yet.
    void addLater(QBoxLayout* layout, const QString& caption, const QString& image,
                  const QString& name);
    void fitToScreen();

    /// The session's row of the current cell, once the open editor's text is accepted; without one
    /// a box says what to do.
    [[nodiscard]] std::optional<std::size_t> currentRow();
    /// The small dialog of groups; `row` is that of the part it is about, a new part has none.
    [[nodiscard]] std::optional<GroupChoice> askForGroup(GroupChoiceMode mode,
                                                         std::optional<std::size_t> row);
    void addComponent();
    void copyComponent();
    void changeGroup();
    void calculate();
    void openFindBar();
    void find(const TableQuery& query);
    void escape();
    void showMarkCount(std::size_t cells);

    TableSession& session_;
    DialogServices services_;
    CComponentGrid* grid_ = nullptr;
    QLabel* line_ = nullptr;
    QLabel* markCount_ = nullptr;
    FindBar* findBar_ = nullptr;
};

/// The dialog of the Analyses library.
using CComChange1_ASR = CComChange1;

} // namespace partwright
