#pragma once

// The table of all parts without a group, each to be given a family and a group. OK leaves the
// choices in the table that was handed over, for the page to take; Cancel drops them with it.

#include "editing/new_component_session.h"

#include <QDialog>

class QBoxLayout;

namespace partwright {

class CStingrayGrid;

class CNewComp1 : public QDialog {
    Q_OBJECT

public:
    explicit CNewComp1(NewComponentTable& table, QWidget* parent = nullptr);

public Q_SLOTS:
    /// OK: an open list is committed first.
    void accept() override;

private:
    QBoxLayout* makeButtons();

    CStingrayGrid* grid_ = nullptr;
};

} // namespace partwright
