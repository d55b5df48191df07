#pragma once

// The small dialog behind "Add", "Copy" and "Change Group": a part number, a family and a group.
// What is on offer and what is refused is decided by its session.
//
//   CAdvDlg dialog(session, prompt, partNumberOfRow, this);
//   if (dialog.exec() == QDialog::Accepted)
//       ...session.result()...

#include "core/ports/prompt.h"
#include "editing/new_component_session.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QVBoxLayout;

namespace partwright {

class CAdvDlg : public QDialog {
    Q_OBJECT

public:
    /// `partNumber` is that of the row that was copied or whose group changes; a new part starts
    /// without one.
    CAdvDlg(GroupChoiceSession& session, Prompt& prompt, const QString& partNumber,
            QWidget* parent = nullptr);

public Q_SLOTS:
    void accept() override;

private:
    void addPartNumber(QVBoxLayout* column, const QString& partNumber);
    /// What cannot be in a part number is replaced while it is typed, and said.
    void cleanPartNumber();
    QVBoxLayout* makeList(const QString& caption, QListWidget* list);
    void showFamilies();
    void showGroups();

    GroupChoiceSession& session_;
    Prompt& prompt_;
    QLineEdit* partNumber_ = nullptr;
    QLabel* partNumberLine_ = nullptr;
    QListWidget* families_ = nullptr;
    QListWidget* groups_ = nullptr;
    QPushButton* ok_ = nullptr;
};

} // namespace partwright
