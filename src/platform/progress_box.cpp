#include "platform/progress_box.h"

#include <QApplication>

namespace partwright {

namespace {

constexpr qint64 patience = 1000; // milliseconds until the box comes up
constexpr qint64 pace = 100;      // and between its changes

} // namespace

void ProgressBox::step() {
    if (!watch_.isValid())
        watch_.start();
    ++steps_;
    const qint64 now = watch_.elapsed();
    if (now < patience || now < shownAt_ + pace)
        return;
    shownAt_ = now;
    if (!box_) {
        box_ = std::make_unique<QProgressDialog>(QApplication::activeWindow());
        box_->setObjectName(QStringLiteral("progressBox"));
        box_->setWindowTitle(QStringLiteral("Partwright"));
        box_->setWindowModality(Qt::ApplicationModal);
        box_->setCancelButton(nullptr);
        box_->setRange(0, 0);
        box_->show();
    }
    box_->setLabelText(QProgressDialog::tr("Parts worked on: %1").arg(steps_));
    // Painting only: a press in the middle of the work must not start another.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void ProgressBox::finish() {
    box_.reset();
    watch_.invalidate();
    shownAt_ = 0;
    steps_ = 0;
}

} // namespace partwright
