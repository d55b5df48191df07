#include "dialogs/image_icon.h"

#include <QApplication>
#include <QIconEngine>
#include <QImageReader>
#include <QPainter>
#include <QPixmapCache>
#include <QStyle>
#include <QStyleOption>

namespace partwright {

namespace {

class ImageEngine final : public QIconEngine {
public:
    explicit ImageEngine(const QString& file) : file_(file) {}

    QIconEngine* clone() const override { return new ImageEngine(file_); }

    void paint(QPainter* painter, const QRect& area, QIcon::Mode mode,
               QIcon::State state) override {
        const double dots = painter->device()->devicePixelRatio();
        painter->drawPixmap(area, pixmap((QSizeF(area.size()) * dots).toSize(), mode, state));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
        const QPalette palette = QGuiApplication::palette();
        const QString key = QStringLiteral("%1 %2 %3 %4 %5")
                                .arg(file_)
                                .arg(size.width())
                                .arg(size.height())
                                .arg(int(mode))
                                .arg(palette.cacheKey());
        QPixmap result;
        if (QPixmapCache::find(key, &result))
            return result;
        QImageReader reader(file_, "svg");
        reader.setScaledSize(reader.size().scaled(size, Qt::KeepAspectRatio));
        result = QPixmap::fromImage(reader.read());
        if (mode != QIcon::Normal) {
            QStyleOption option;
            option.palette = palette;
            result = QApplication::style()->generatedIconPixmap(mode, result, &option);
        }
        QPixmapCache::insert(key, result);
        return result;
    }

private:
    QString file_;
};

} // namespace

QIcon imageIcon(const QString& image) {
    return QIcon(new ImageEngine(QStringLiteral(":/images/") + image));
}

} // namespace partwright
