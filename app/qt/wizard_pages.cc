#include "wizard_pages.h"

#include <QFrame>
#include <QLabel>
#include <QVBoxLayout>

#include "bindings.h"
#include "rich_text_view.h"

namespace tessaly::qt {

PageFrame MakePage(const char* name) {
  auto* page = new QWidget;
  page->setObjectName(QString::fromLatin1(name));
  auto* outer = new QVBoxLayout(page);
  outer->setContentsMargins(0, 0, 0, 0);
  outer->setSpacing(0);

  auto* heading = new QLabel(page);
  heading->setTextFormat(Qt::PlainText);
  heading->setAutoFillBackground(true);
  heading->setContentsMargins(10, 12, 10, 12);
  // A band in the colours of a text field, light or dark with the theme.
  heading->setBackgroundRole(QPalette::Base);
  heading->setForegroundRole(QPalette::Text);
  QFont big = heading->font();
  big.setBold(true);
  big.setPointSizeF(big.pointSizeF() * 1.35);
  heading->setFont(big);
  outer->addWidget(heading);

  auto* line = new QFrame(page);
  line->setFrameShape(QFrame::HLine);
  line->setFrameShadow(QFrame::Sunken);
  outer->addWidget(line);

  auto* body = new QVBoxLayout;
  body->setContentsMargins(14, 10, 14, 6);
  body->setSpacing(8);
  outer->addLayout(body, 1);
  return {page, heading, body};
}

void FollowHeading(Label& page, QLabel* heading) {
  Follow(page.changed, heading, [&page, heading] { heading->setText(ToQt(page.caption())); });
}

QWidget* BuildWelcomePage(fTessaly& form) {
  PageFrame frame = MakePage("pStep0");
  FollowHeading(form.pStep[0], frame.heading);
  auto* welcome = new QLabel(frame.page);
  welcome->setObjectName(QStringLiteral("lWelcome"));
  welcome->setWordWrap(true);
  welcome->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  BindLabel(form.lWelcome, welcome);
  frame.body->addSpacing(8);
  frame.body->addWidget(welcome, 1);
  return frame.page;
}

QWidget* BuildLogPage(fTessaly& form) {
  PageFrame frame = MakePage("pStep4");
  FollowHeading(form.pStep[4], frame.heading);
  auto* log = new RichTextView(form.tLog, frame.page);
  log->setObjectName(QStringLiteral("tLog"));
  frame.body->addWidget(log, 1);
  return frame.page;
}

}  // namespace tessaly::qt
