#pragma once

// The program's own images as icons. A file is read when the icon is first painted, once for each
// size, and never to find out what it holds, as icons made from a file name do; that counts in a
// window with a picture on every button.
//
//   button->setIcon(imageIcon(QStringLiteral("save.svg")));

#include <QIcon>
#include <QString>

namespace partwright {

/// `image` names a file of the program's images.
[[nodiscard]] QIcon imageIcon(const QString& image);

} // namespace partwright
