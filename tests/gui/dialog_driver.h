#pragma once

// Finding and pressing what a dialog shows, by object name.

#include "support/qt_print.h"

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QWidget>
#include <stdexcept>

namespace partwright::test {

inline QString s(const char* text) {
    return QString::fromUtf8(text);
}

template <class Widget = QWidget>
Widget& find(const QWidget& dialog, const char* name) {
    auto* const found = dialog.findChild<Widget*>(s(name));
    if (found == nullptr)
        throw std::runtime_error(std::string("no such control: ") + name);
    return *found;
}

inline void press(const QWidget& dialog, const char* button) {
    QTest::mouseClick(&find<QPushButton>(dialog, button), Qt::LeftButton);
}

/// Shows the dialog as exec() does, but comes back at once.
inline void open(QWidget& dialog) {
    dialog.show();
    dialog.activateWindow();
    if (!QTest::qWaitForWindowActive(&dialog))
        throw std::runtime_error("the dialog did not open");
}

/// To whatever has the focus, an open list first.
inline void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWidget* target = QApplication::activePopupWidget();
    if (target != nullptr && target->focusWidget() != nullptr)
        target = target->focusWidget();
    QTest::keyClick(target != nullptr ? target : QApplication::focusWidget(), key, modifiers);
}

inline void type(const char* text) {
    for (const char* c = text; *c != 0; ++c) {
        QWidget* const list = QApplication::activePopupWidget();
        QTest::keyClick(list != nullptr ? list->focusWidget() : QApplication::focusWidget(), *c);
    }
}

} // namespace partwright::test
