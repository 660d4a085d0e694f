#include "wizard_window.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QFrame>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QHBoxLayout>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "bindings.h"
#include "logo_strip.h"
#include "realise.h"
#include "wizard_pages.h"

namespace tessaly::qt {

namespace {

// The pages' room: as large as the pages want while the screen has room,
// scrolling where it has not, so the window fits any screen and its
// buttons stay on it.
class PageRoom : public QScrollArea {
 public:
  explicit PageRoom(QWidget* pages, QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);  // Tab goes to the pages' controls, shown as it reaches them
    setWidgetResizable(true);
    setWidget(pages);
  }
  QSize sizeHint() const override { return widget()->sizeHint().expandedTo(widget()->minimumSizeHint()); }
};

// The room for a window on `screen`: its free area less a frame and a
// title bar.
QSize RoomOn(const QScreen* screen, const QWidget* window) {
  const int frame = window->style()->pixelMetric(QStyle::PM_DefaultFrameWidth) + 4;
  const int title = window->style()->pixelMetric(QStyle::PM_TitleBarHeight);
  return screen->availableGeometry().size() - QSize(2 * frame, title + 2 * frame);
}

bool IsLive(const QPushButton* button) {
  return button != nullptr && button->isVisible() && button->isEnabled();
}

// Clicks `button` if a person could: it is on show and enabled.
bool ClickIfLive(QPushButton* button) {
  if (!IsLive(button)) return false;
  button->click();
  return true;
}

// Whether `widget` is a text field a person types in: a placement box (a
// drop-down with free text, which holds the focus for its line) or a line.
bool IsBeingEdited(const QWidget* widget) {
  if (const auto* box = qobject_cast<const QComboBox*>(widget)) return box->isEditable();
  const auto* edit = qobject_cast<const QLineEdit*>(widget);
  return edit != nullptr && !edit->isReadOnly();
}

}  // namespace

WizardWindow::WizardWindow(fTessaly& form) : form_(&form) {
  const layout::WizardWindow description = layout::DescribeWizard(form);
  setObjectName(ToQt(form.name()));
  Realiser realiser(this);

  auto* root = new QHBoxLayout(this);
  // The smallest window is what the layouts need, also where a wrapped
  // text makes a height depend on the width (Qt leaves that one open); the
  // pages scroll, so that is the strip and the buttons.
  root->setSizeConstraint(QLayout::SetMinimumSize);
  root->setContentsMargins(0, 0, 0, 0);
  root->setSpacing(0);
  root->addWidget(new LogoStrip(description.steps, this));

  auto* right = new QVBoxLayout;
  right->setContentsMargins(0, 0, 0, 0);
  right->setSpacing(0);
  pages_ = new QStackedWidget;
  for (const layout::Page& page : description.pages) pages_->addWidget(BuildPage(page));
  // The page the model shows is the one on top.
  for (int i = 0; i < fTessaly::kStepCount; ++i) {
    Follow(form.pStep[i].changed, pages_, [this, &form, i] {
      if (form.pStep[i].visible()) pages_->setCurrentIndex(i);
    });
  }
  right->addWidget(new PageRoom(pages_, this), 1);

  auto* line = new QFrame(this);
  line->setFrameShape(QFrame::HLine);
  line->setFrameShadow(QFrame::Sunken);
  right->addWidget(line);
  right->addLayout(realiser.MakeLayout(description.buttons, this));
  root->addLayout(right, 1);
  next_ = findChild<QPushButton*>(QString::fromStdString(description.defaultButton));
  cancel_ = findChild<QPushButton*>(QString::fromStdString(description.cancelButton));
  next_->setDefault(true);
  next_->setFocus();  // as in a dialog; the step labels come first for Tab
  // A focused button takes Return itself, as in a dialog.
  for (QPushButton* button : findChildren<QPushButton*>()) button->setAutoDefault(true);
  const DialogUnits& units = realiser.units();
  const QSize designed(units.Across(description.size.width), units.Down(description.size.height));
  resize(sizeHint().expandedTo(designed).boundedTo(RoomOn(screen(), this)));

  Follow(form.changed, this, [this] {
    if (form_ != nullptr) setWindowTitle(ToQt(form_->caption()));
  });
  HoldUntilGone(this, form.unloaded.Connect([this] {
    form_ = nullptr;
    close();
  }));
}

void WizardWindow::keyPressEvent(QKeyEvent* event) {
  const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  const int key = event->key();
  if (plain && (key == Qt::Key_Return || key == Qt::Key_Enter) && ClickIfLive(next_)) return;
  if (plain && key == Qt::Key_Escape) {
    // The typing ends first, the text kept: the focus goes on to the
    // default button, from where the next Escape ends the wizard.
    if (QWidget* focus = focusWidget(); IsBeingEdited(focus)) {
      if (IsLive(next_)) {
        next_->setFocus(Qt::OtherFocusReason);
      } else {
        focus->clearFocus();
      }
      return;
    }
    if (ClickIfLive(cancel_)) return;
  }
  QWidget::keyPressEvent(event);
}

void WizardWindow::closeEvent(QCloseEvent* event) {
  // The close box ends the program as Cancel does, saving nothing.
  if (form_ != nullptr) {
    fTessaly* form = form_;
    form_ = nullptr;
    form->EndProgram();
  }
  event->accept();
}

}  // namespace tessaly::qt
