#include "platform/message_prompt.h"

#include <QApplication>
#include <QMessageBox>

namespace partwright {

namespace {

QMessageBox::Icon boxIcon(PromptIcon icon) {
    switch (icon) {
    case PromptIcon::Information:
        return QMessageBox::Information;
    case PromptIcon::Warning:
        return QMessageBox::Warning;
    case PromptIcon::Question:
        return QMessageBox::Question;
    case PromptIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

QString text(std::wstring_view value) {
    return QString::fromWCharArray(value.data(), static_cast<qsizetype>(value.size()));
}

} // namespace

PromptAnswer MessagePrompt::show(std::wstring_view title, std::wstring_view words, PromptIcon icon,
                                 PromptButtons buttons) {
    QMessageBox box(boxIcon(icon), text(title), text(words),
                    buttons == PromptButtons::YesNo ? QMessageBox::Yes | QMessageBox::No
                                                    : QMessageBox::StandardButtons(QMessageBox::Ok),
                    QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.setObjectName(QStringLiteral("messageBox"));
    // Whoever asks may be at work under the wait cursor; the person is not.
    const bool isWaiting = QApplication::overrideCursor() != nullptr;
    if (isWaiting)
        QApplication::setOverrideCursor(Qt::ArrowCursor);
    const int pressed = box.exec();
    if (isWaiting)
        QApplication::restoreOverrideCursor();
    if (buttons == PromptButtons::YesNo)
        return pressed == QMessageBox::Yes ? PromptAnswer::Yes : PromptAnswer::No;
    return PromptAnswer::Ok;
}

} // namespace partwright
