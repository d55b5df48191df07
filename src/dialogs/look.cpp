#include "dialogs/look.h"

#include "dialogs/image_icon.h"

#include <QScrollBar>

/// Resources of a static library are only linked in by this macro, which knows no namespace.
static void registerImages() {
    Q_INIT_RESOURCE(images);
}

namespace partwright::look {

void initialiseImages() {
    registerImages();
}

void paintHeader(QHeaderView& header) {
    QPalette palette = header.palette();
    palette.setColor(QPalette::Button, headerBackground);
    palette.setColor(QPalette::Window, headerBackground);
    palette.setColor(QPalette::ButtonText, darkText);
    palette.setColor(QPalette::WindowText, darkText);
    palette.setColor(QPalette::Text, darkText);
    header.setPalette(palette);
}

void paintAlarm(QLabel& label) {
    QPalette palette = label.palette();
    palette.setColor(QPalette::WindowText, alarmText);
    label.setPalette(palette);
}

void paintList(QAbstractScrollArea& list) {
    const QPalette desktop = list.palette();
    QPalette palette = desktop;
    palette.setColor(QPalette::Base, listBackground);
    palette.setColor(QPalette::Window, headerBackground); // the lines are a shade of it
    palette.setColor(QPalette::Text, darkText);
    list.setPalette(palette);
    list.verticalScrollBar()->setPalette(desktop);
    list.horizontalScrollBar()->setPalette(desktop);
}

QPushButton* imageButton(const QString& caption, const QString& image, const QString& toolTip,
                         const QString& objectName) {
    auto* button = new QPushButton(imageIcon(image), caption);
    button->setObjectName(objectName);
    button->setToolTip(toolTip);
    button->setAccessibleName(QString(caption).remove(QLatin1Char('&')));
    button->setCursor(Qt::PointingHandCursor);
    QPalette palette = button->palette();
    palette.setColor(QPalette::Button, buttonFace);
    palette.setColor(QPalette::Active, QPalette::ButtonText, darkText);
    palette.setColor(QPalette::Inactive, QPalette::ButtonText, darkText);
    palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(0x78, 0x80, 0x80));
    button->setPalette(palette);
    return button;
}

} // namespace partwright::look
