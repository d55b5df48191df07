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
    if (QApplication::overrideCursor() != nullptr)
        box.setCursor(Qt::ArrowCursor);
    const int pressed = box.exec();
    if (buttons == PromptButtons::YesNo)
        return pressed == QMessageBox::Yes ? PromptAnswer::Yes : PromptAnswer::No;
    return PromptAnswer::Ok;
}

} // namespace partwright
