#include "platform/desktop_opener.h"

#include "core/text_file.h"

#include <QDesktopServices>
#include <QFile>
#include <QUrl>

namespace partwright {

namespace {

QUrl urlOf(std::wstring_view target) {
    const auto text = QString::fromWCharArray(target.data(), static_cast<qsizetype>(target.size()));
    if (text.startsWith(QStringLiteral("http://")) || text.startsWith(QStringLiteral("https://")))
        return QUrl(text);
    return QUrl::fromLocalFile(
        QFile::decodeName(QByteArray::fromStdString(nativePath(target).string())));
}

} // namespace

bool DesktopOpener::open(std::wstring_view target) {
    return QDesktopServices::openUrl(urlOf(target));
}

} // namespace partwright
