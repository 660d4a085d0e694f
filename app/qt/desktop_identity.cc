#include "desktop_identity.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

#include "emblem.h"

namespace tessaly::qt {

namespace {

// The emblem on a rounded square of its sky, at the sizes desktops ask for.
QIcon PaintedIcon() {
  QIcon icon;
  for (int size : {16, 24, 32, 48, 64, 128, 256}) {
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF square(0, 0, size, size);
    QPainterPath tile;
    tile.addRoundedRect(square, size * 0.18, size * 0.18);
    painter.fillPath(tile, EmblemSky(square));
    const qreal inset = size * 0.06;
    PaintEmblem(painter, square.adjusted(inset, inset, -inset, -inset));
    painter.end();
    icon.addPixmap(picture);
  }
  return icon;
}

}  // namespace

void SetDesktopIdentity() {
  QGuiApplication::setDesktopFileName(QStringLiteral("tessaly"));
  QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("tessaly"), PaintedIcon()));
}

}  // namespace tessaly::qt
