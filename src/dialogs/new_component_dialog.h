#pragma once

// The table of all parts without a group, each to be given a family and a group. OK leaves the
// choices in the table that was handed over, for the page to take; Cancel drops them with it.

#include "dialogs/services.h"
#include "editing/new_component_session.h"
#include "grid/grid_core.h"

#include <QDialog>
#include <memory>

class QBoxLayout;

namespace partwright {

class CNewComponentGrid;

class CNewComp1 : public QDialog {
    Q_OBJECT

public:
    /// The directions in which the table's columns were sorted last outlive the dialog.
    CNewComp1(NewComponentTable& table, const DialogServices& services,
              std::shared_ptr<grid::SortFlags> sortFlags, QWidget* parent = nullptr);

    /// Makes the row of a part current; nothing without such a row.
    void showPart(const QString& part);

public Q_SLOTS:
    /// OK: an open list is committed first.
    void accept() override;

private:
    QBoxLayout* makeButtons();

    DialogServices services_;
    CNewComponentGrid* grid_ = nullptr;
};

} // namespace partwright
