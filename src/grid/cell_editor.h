#pragma once

// The editor that stands over a cell, and the list of a drop-down cell.
//
// The editor decides nothing: each key goes to its host first, and losing the focus means nothing
// to it. A drop-down's editor takes no typing; typing opens the list and searches there. While the
// list is open only the highlight moves; the editor's text changes once, when an entry is chosen.

#include "grid/cell_style.h"

#include <QFrame>
#include <QLineEdit>
#include <QPointer>

class QTreeWidget;

namespace partwright::grid {

class ChoicePopup;

class EditorHost {
public:
    virtual ~EditorHost() = default;
    /// True when the host has dealt with the key.
    virtual bool editorKey(QKeyEvent* event) = 0;
    virtual void editorTextChanged() = 0;
    virtual void choiceMade(const QString& name) = 0;
    /// The list closed without a choice.
    virtual void choiceDropped() = 0;
};

class CellEditor : public QLineEdit {
    Q_OBJECT

public:
    CellEditor(QWidget* parent, EditorHost& host, const CellStyle& look);

    [[nodiscard]] bool isDropDown() const { return kind_ == CellKind::DropDown; }
    /// Below `cell`, which is in global coordinates. `typed` starts the search.
    void openList(const QRect& cell, const QString& typed);
    [[nodiscard]] ChoicePopup* list() const { return list_; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    EditorHost& host_;
    CellKind kind_;
    QString choices_;
    QPointer<ChoicePopup> list_;
};

/// The open list: a name and its remark on each line.
class ChoicePopup : public QFrame {
    Q_OBJECT

public:
    ChoicePopup(CellEditor* editor, EditorHost& host, const QString& choices);

    void openAt(const QRect& cell, const QString& current, const QString& typed);
    [[nodiscard]] QTreeWidget* entries() const { return entries_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void choose();
    bool key(QKeyEvent* event);

    EditorHost& host_;
    QTreeWidget* entries_;
    bool done_ = false;
};

} // namespace partwright::grid
