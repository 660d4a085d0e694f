#include "progress_window.h"

#include <QCloseEvent>
#include <QFontMetrics>
#include <QFrame>
#include <QLabel>
#include <QScreen>
#include <algorithm>

#include "bindings.h"
#include "readable_colour.h"
#include "realise.h"
#include "wizard/layout/windows.h"

namespace tessaly::qt {

ProgressWindow::ProgressWindow(fProgress& form, QWidget* owner)
    : QWidget(owner, Qt::Tool | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      form_(&form),
      owner_(owner) {
  const layout::Dialog description = layout::DescribeProgress(form);
  const layout::Item& box = description.body;
  const layout::Item& trough = box.children.at(0);
  setObjectName(ToQt(description.name));
  setAttribute(Qt::WA_DeleteOnClose);
  const DialogUnits units(font());
  QFont bold = font();
  bold.setBold(true);
  // Higher than described where a large font needs it.
  const int troughWidth = units.Across(trough.fixed.width);
  const int troughHeight =
      std::max(units.Down(trough.fixed.height), QFontMetrics(bold).height() + 8);
  const QPoint margin(units.Across(box.margins.left), units.Down(box.margins.top));
  setFixedSize(troughWidth + units.Across(box.margins.left + box.margins.right),
               troughHeight + units.Down(box.margins.top + box.margins.bottom));

  trough_ = new QFrame(this);
  trough_->setObjectName(ToQt(trough.name));
  trough_->setFrameStyle(QFrame::Panel | QFrame::Sunken);
  trough_->setGeometry(margin.x(), margin.y(), troughWidth, troughHeight);

  bar_ = new QWidget(trough_);
  bar_->setObjectName(ToQt(trough.children.at(0).name));
  bar_->setAutoFillBackground(true);
  QPalette barColour = bar_->palette();
  // The caption stands on the bar too, in the palette's text colour.
  barColour.setColor(QPalette::Window, FillUnderText(barColour, QColor(255, 192, 128)));
  bar_->setPalette(barColour);

  caption_ = new QLabel(trough_);
  caption_->setObjectName(ToQt(trough.children.at(1).name));
  caption_->setAlignment(Qt::AlignCenter);
  caption_->setAttribute(Qt::WA_TransparentForMouseEvents);
  caption_->setFont(bold);
  caption_->setGeometry(trough_->contentsRect());

  Follow(form.changed, this, [this] {
    if (form_ != nullptr) setWindowTitle(ToQt(form_->caption()));
  });
  Follow(form.lCur.changed, this, [this] { DrawBar(); });
  Follow(form.lTotal.changed, this, [this] { DrawBar(); });
  Follow(form.lCaption.changed, this, [this] {
    if (form_ == nullptr) return;
    pacer_.Hold();
    caption_->setText(ToQt(form_->lCaption.caption()));
  });
  HoldUntilGone(this, form.unloaded.Connect([this] {
    form_ = nullptr;
    close();
  }));
  PlaceOnOwner();
}

void ProgressWindow::DrawBar() {
  if (form_ == nullptr) return;
  const long total = form_->lTotal.width();
  const double share = total > 0 ? static_cast<double>(form_->lCur.width()) / total : 0;
  const QRect inside = trough_->contentsRect();
  const int width = static_cast<int>(share * inside.width() + 0.5);
  pacer_.Hold();
  bar_->setGeometry(inside.x(), inside.y(), std::clamp(width, 0, inside.width()), inside.height());
}

QString ProgressWindow::percentText() const { return caption_->text(); }

double ProgressWindow::barShare() const {
  return static_cast<double>(bar_->width()) / trough_->contentsRect().width();
}

void ProgressWindow::PlaceOnOwner() {
  const QRect around = owner_ != nullptr && owner_->isVisible()
                           ? owner_->frameGeometry()
                           : screen()->availableGeometry();
  move(around.center() - rect().center());
}

void ProgressWindow::closeEvent(QCloseEvent* event) {
  // It takes no input: only the end of its form closes it.
  if (form_ != nullptr) {
    event->ignore();
    return;
  }
  QWidget::closeEvent(event);
}

}  // namespace tessaly::qt
