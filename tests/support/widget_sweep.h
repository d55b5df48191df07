#pragma once

// What every window must give to those who use the keyboard or a screen reader: names on all
// controls, and a way of the Tab key that goes from one to the next.

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QSlider>
#include <QStringList>
#include <QTabBar>
#include <QTest>
#include <QTextEdit>
#include <QWidget>

namespace partwright::test {

inline bool isControl(const QWidget& widget) {
    if (qobject_cast<const QScrollBar*>(&widget) != nullptr)
        return false; // a piece of what it scrolls
    for (const QWidget* above = widget.parentWidget(); above != nullptr;
         above = above->parentWidget())
        if (qobject_cast<const QAbstractItemView*>(above) != nullptr ||
            qobject_cast<const QTabBar*>(above) != nullptr ||
            qobject_cast<const QComboBox*>(above) != nullptr ||
            qobject_cast<const QAbstractSpinBox*>(above) != nullptr)
            return false; // a piece of a control
    const auto* label = qobject_cast<const QLabel*>(&widget);
    return (label != nullptr && !label->pixmap(Qt::ReturnByValue).isNull()) ||
           qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
           qobject_cast<const QAbstractItemView*>(&widget) != nullptr ||
           qobject_cast<const QAbstractSlider*>(&widget) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(&widget) != nullptr ||
           qobject_cast<const QComboBox*>(&widget) != nullptr ||
           qobject_cast<const QGroupBox*>(&widget) != nullptr ||
           qobject_cast<const QLineEdit*>(&widget) != nullptr ||
           qobject_cast<const QTabBar*>(&widget) != nullptr ||
           qobject_cast<const QTextEdit*>(&widget) != nullptr;
}

/// Controls without an object name, or without a name that a screen reader could say.
inline QStringList namelessControls(const QWidget& window) {
    QStringList nameless;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (!isControl(*widget))
            continue;
        QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(widget);
        const QString name = spoken == nullptr ? QString() : spoken->text(QAccessible::Name);
        if (name.trimmed().isEmpty() || widget->objectName().isEmpty())
            nameless << QLatin1String(widget->metaObject()->className()) + QLatin1Char(' ') +
                            widget->objectName() + QLatin1String(" '") + name + QLatin1Char('\'');
    }
    return nameless;
}

/// Object names of what the Tab key reaches, in the active window, from the control that has the
/// focus until that one comes again.
inline QStringList tabWay() {
    QStringList way;
    const QWidget* first = QApplication::focusWidget();
    for (QWidget* at = QApplication::focusWidget(); at != nullptr && way.size() < 200;
         at = QApplication::focusWidget()) {
        way << at->objectName();
        QTest::keyClick(at, Qt::Key_Tab);
        if (QApplication::focusWidget() == first)
            break;
    }
    return way;
}

} // namespace partwright::test
