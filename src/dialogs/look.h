#pragma once

// Colours that the windows are told to have. They do not follow the desktop's theme, so text on
// them is dark in a dark theme too.

#include <QAbstractScrollArea>
#include <QColor>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QString>

namespace partwright::look {

inline const QColor listBackground(0xE1, 0xFF, 0xFF);
inline const QColor headerBackground(0xFA, 0xFA, 0xFA);
inline const QColor buttonFace(0xE6, 0xF0, 0xF0);
inline const QColor darkText(0x00, 0x00, 0x00);
inline const QColor alarmText(0xFF, 0x00, 0x00);

/// Makes the program's images known; the window calls it before it shows one.
void initialiseImages();

void paintHeader(QHeaderView& header);

/// The text of the label is red.
void paintAlarm(QLabel& label);

/// The told background for all that the list does not cover with cells, and lines that suit it.
void paintList(QAbstractScrollArea& list);

/// A button with a small image, the told face and a hand cursor. `image` names a file of the
/// program's images; the accessible name is the caption without its mnemonic.
[[nodiscard]] QPushButton* imageButton(const QString& caption, const QString& image,
                                       const QString& toolTip, const QString& objectName);

} // namespace partwright::look
