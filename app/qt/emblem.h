#ifndef TESSALY_APP_QT_EMBLEM_H_
#define TESSALY_APP_QT_EMBLEM_H_

#include <QLinearGradient>
#include <QPainter>
#include <QRectF>

namespace tessaly::qt {

// The program's emblem over `area`: two sheets, the second one turned,
// and an arrow from the old one to the new: one name becoming another.
void PaintEmblem(QPainter& painter, const QRectF& area);

// The deep blue behind the emblem, in the strip and in the icon.
QLinearGradient EmblemSky(const QRectF& area);

}  // namespace tessaly::qt

#endif  // TESSALY_APP_QT_EMBLEM_H_
