#include "logo_strip.h"

#include <QFontMetrics>
#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>

#include "bindings.h"
#include "emblem.h"
#include "model_widgets.h"

namespace tessaly::qt {

namespace {

constexpr int kStripWidth = 192;
constexpr int kEmblemTop = 24;
constexpr int kEmblemSize = 96;
constexpr int kLeftMargin = 16;
constexpr int kRightMargin = 8;

}  // namespace

LogoStrip::LogoStrip(const std::vector<layout::Item>& steps, QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("pLogo"));
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(kLeftMargin, kEmblemTop + kEmblemSize + 28, kRightMargin, 16);
  layout->setSpacing(14);
  QFont bold = font();
  bold.setBold(true);
  int widest = 0;
  for (const layout::Item& step : steps) {
    Label& model = *std::get<Label*>(step.model);
    auto* label = new ClickableLabel(this);
    label->setObjectName(QString::fromStdString(step.name));
    label->setAttribute(Qt::WA_TranslucentBackground);
    QPalette white = label->palette();
    white.setColor(QPalette::WindowText, Qt::white);
    label->setPalette(white);
    BindLabel(model, label, true);
    widest = std::max(widest, QFontMetrics(bold).horizontalAdvance(label->text()));
    label->onClick = [&model] { model.Click(); };
    layout->addWidget(label);
  }
  layout->addStretch();
  // Wide enough for every step in bold, so the strip keeps its width from
  // step to step whatever the font's size.
  setFixedWidth(std::max(kStripWidth, widest + kLeftMargin + kRightMargin + 4));
}

void LogoStrip::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), EmblemSky(rect()));
  // A faint arc across the strip, for depth.
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(QColor(255, 255, 255, 22), 28));
  painter.drawEllipse(QPointF(width() * 1.1, height() * 0.95), width() * 0.9, width() * 0.9);
  PaintEmblem(painter, QRectF((width() - kEmblemSize) / 2.0, kEmblemTop, kEmblemSize, kEmblemSize));
}

}  // namespace tessaly::qt
