#include "emblem.h"

#include <QPainterPath>

namespace tessaly::qt {

namespace {

// A sheet with a folded corner, the emblem's file.
QPainterPath Sheet(const QRectF& box) {
  const qreal fold = box.width() * 0.3;
  QPainterPath path;
  path.moveTo(box.topLeft());
  path.lineTo(box.right() - fold, box.top());
  path.lineTo(box.right(), box.top() + fold);
  path.lineTo(box.bottomRight());
  path.lineTo(box.bottomLeft());
  path.closeSubpath();
  return path;
}

}  // namespace

void PaintEmblem(QPainter& painter, const QRectF& area) {
  painter.setRenderHint(QPainter::Antialiasing);
  // A soft disc behind two sheets, the second one turned: one name becoming
  // another.
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(255, 255, 255, 38));
  painter.drawEllipse(area);

  const qreal unit = area.width() / 8;
  const QRectF back(area.left() + 1.6 * unit, area.top() + 1.5 * unit, 3 * unit, 3.8 * unit);
  painter.setBrush(QColor(255, 255, 255, 110));
  painter.drawPath(Sheet(back));

  painter.save();
  painter.translate(area.left() + 4.6 * unit, area.top() + 4.2 * unit);
  painter.rotate(12);
  const QRectF front(-1.5 * unit, -1.9 * unit, 3 * unit, 3.8 * unit);
  painter.setBrush(QColor(255, 255, 255, 235));
  painter.drawPath(Sheet(front));
  painter.setPen(QPen(QColor(30, 96, 140), unit * 0.28, Qt::SolidLine, Qt::RoundCap));
  for (int line = 0; line < 3; ++line) {
    const qreal y = front.top() + (1.5 + line * 0.7) * unit;
    painter.drawLine(QPointF(front.left() + 0.5 * unit, y),
                     QPointF(front.right() - (line == 2 ? 1.2 : 0.5) * unit, y));
  }
  painter.restore();

  // The arrow from the old sheet to the new one.
  QPainterPath arrow;
  arrow.moveTo(area.left() + 2.2 * unit, area.top() + 6.3 * unit);
  arrow.quadTo(area.left() + 2.6 * unit, area.top() + 7.3 * unit, area.left() + 4.0 * unit,
               area.top() + 7.0 * unit);
  painter.setPen(QPen(QColor(255, 214, 150), unit * 0.35, Qt::SolidLine, Qt::RoundCap));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(arrow);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(255, 214, 150));
  QPolygonF head;
  head << QPointF(area.left() + 4.5 * unit, area.top() + 6.85 * unit)
       << QPointF(area.left() + 3.8 * unit, area.top() + 6.45 * unit)
       << QPointF(area.left() + 3.9 * unit, area.top() + 7.45 * unit);
  painter.drawPolygon(head);
}


QLinearGradient EmblemSky(const QRectF& area) {
  QLinearGradient sky(area.topLeft(), QPointF(area.left() + area.width() * 0.35, area.bottom()));
  sky.setColorAt(0, QColor(38, 120, 160));
  sky.setColorAt(0.55, QColor(24, 66, 112));
  sky.setColorAt(1, QColor(16, 34, 64));
  return sky;
}

}  // namespace tessaly::qt
