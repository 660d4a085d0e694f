#include "wizard_pages.h"

#include <QFrame>
#include <QLabel>
#include <QVBoxLayout>

#include "bindings.h"
#include "realise.h"

namespace tessaly::qt {

namespace {

// The heading follows its Label's caption alone: the page shows or hides
// as a whole.
QLabel* Heading(const layout::Item& item, const DialogUnits& units, QWidget* page) {
  auto* heading = new QLabel(page);
  heading->setObjectName(QString::fromStdString(item.name));
  heading->setTextFormat(Qt::PlainText);
  heading->setAutoFillBackground(true);
  heading->setContentsMargins(units.Across(6), units.Down(7), units.Across(6), units.Down(7));
  heading->setBackgroundRole(QPalette::Base);
  heading->setForegroundRole(QPalette::Text);
  QFont big = heading->font();
  big.setBold(true);
  big.setPointSizeF(big.pointSizeF() * 1.35);
  heading->setFont(big);
  Label& label = *std::get<Label*>(item.model);
  Follow(label.changed, heading, [&label, heading] { heading->setText(ToQt(label.caption())); });
  return heading;
}

}  // namespace

QWidget* BuildPage(const layout::Page& description) {
  auto* page = new QWidget;
  page->setObjectName(QString::fromStdString(description.name));
  Realiser realiser(page, description.drop);
  auto* outer = new QVBoxLayout(page);
  outer->setContentsMargins(0, 0, 0, 0);
  outer->setSpacing(0);

  QLabel* heading = Heading(description.heading, realiser.units(), page);
  if (description.heading.takesDrops) realiser.TakeDrops(heading);
  outer->addWidget(heading);
  auto* line = new QFrame(page);
  line->setFrameShape(QFrame::HLine);
  line->setFrameShadow(QFrame::Sunken);
  outer->addWidget(line);
  outer->addLayout(realiser.MakeLayout(description.body, page), 1);

  if (description.takesDrops) realiser.TakeDrops(page);
  realiser.Finish();
  return page;
}

}  // namespace tessaly::qt
