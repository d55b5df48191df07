#pragma once

// The wait cursor, shown while an object of this class lives. A box that comes up meanwhile shows
// the arrow (platform/message_prompt.cpp).

#include <QGuiApplication>

namespace partwright {

class WaitCursor {
public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

} // namespace partwright
