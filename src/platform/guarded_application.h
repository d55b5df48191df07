#pragma once

// The desktop's application, whose events survive running out of memory.

#include "platform/memory_guard.h"

#include <QApplication>

namespace partwright {

class GuardedApplication final : public QApplication {
public:
    GuardedApplication(int& argc, char** argv, Prompt& prompt)
        : QApplication(argc, argv), guard_(prompt) {}

    bool notify(QObject* receiver, QEvent* event) override {
        return guard_.run([&] { return QApplication::notify(receiver, event); });
    }

private:
    MemoryGuard guard_;
};

} // namespace partwright
