#pragma once

// A small window that comes up when work has taken a second, and counts.

#include "core/ports/progress.h"

#include <QElapsedTimer>
#include <QProgressDialog>
#include <memory>

namespace partwright {

class ProgressBox final : public Progress {
public:
    void step() override;
    void finish() override;

private:
    QElapsedTimer watch_;
    qint64 shownAt_ = 0;
    int steps_ = 0;
    std::unique_ptr<QProgressDialog> box_;
};

} // namespace partwright
