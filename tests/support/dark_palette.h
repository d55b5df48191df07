#pragma once

// A dark desktop, for a test or a picture: the program takes its colours from the application's
// palette, which the desktop sets in a real run.

#include <QApplication>
#include <QPalette>

namespace partwright::test {

inline QPalette darkPalette() {
    const QColor window(0x2B, 0x2D, 0x30);
    const QColor base(0x1E, 0x1F, 0x22);
    const QColor text(0xDF, 0xE1, 0xE5);
    QPalette palette(text, window, window.lighter(170), window.darker(150), window.lighter(130),
                     text, base);
    palette.setColor(QPalette::AlternateBase, window);
    palette.setColor(QPalette::ToolTipBase, window);
    palette.setColor(QPalette::ToolTipText, text);
    palette.setColor(QPalette::Highlight, QColor(0x2E, 0x6F, 0xB5));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x6C, 0xB2, 0xF5));
    palette.setColor(QPalette::PlaceholderText, QColor(0x9A, 0x9D, 0xA3));
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(0x7F, 0x82, 0x88));
    return palette;
}

/// Dark while it lives.
class DarkDesktop {
public:
    DarkDesktop() : before_(QApplication::palette()) { QApplication::setPalette(darkPalette()); }
    ~DarkDesktop() { QApplication::setPalette(before_); }
    DarkDesktop(const DarkDesktop&) = delete;
    DarkDesktop& operator=(const DarkDesktop&) = delete;

private:
    QPalette before_;
};

} // namespace partwright::test
