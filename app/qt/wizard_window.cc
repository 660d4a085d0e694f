#include "wizard_window.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "bindings.h"
#include "logo_strip.h"
#include "wizard_pages.h"

namespace tessaly::qt {

namespace {

QPushButton* Button(CommandButton& model, const char* name, QWidget* parent, const char* keys) {
  QPushButton* button = NewButton(model, name, parent, keys);
  button->setMinimumWidth(88);
  return button;
}

// Clicks `button` if a person could: it is on show and enabled.
bool ClickIfLive(QPushButton* button) {
  if (!button->isVisible() || !button->isEnabled()) return false;
  button->click();
  return true;
}

}  // namespace

WizardWindow::WizardWindow(fTessaly& form) : form_(&form) {
  setObjectName(QStringLiteral("fTessaly"));

  auto* root = new QHBoxLayout(this);
  // The smallest window is what the layouts need, also where a wrapped
  // text makes a height depend on the width (Qt leaves that one open).
  root->setSizeConstraint(QLayout::SetMinimumSize);
  root->setContentsMargins(0, 0, 0, 0);
  root->setSpacing(0);
  root->addWidget(new LogoStrip(form, this));

  auto* right = new QVBoxLayout;
  right->setContentsMargins(0, 0, 0, 0);
  right->setSpacing(0);
  pages_ = new QStackedWidget(this);
  for (QWidget* page : {BuildWelcomePage(form), BuildFilePage(form), BuildSettingsPage(form),
                        BuildReviewPage(form), BuildLogPage(form)}) {
    pages_->addWidget(page);
  }
  // The page the model shows is the one on top.
  for (int i = 0; i < fTessaly::kStepCount; ++i) {
    Follow(form.pStep[i].changed, pages_, [this, &form, i] {
      if (form.pStep[i].visible()) pages_->setCurrentIndex(i);
    });
  }
  right->addWidget(pages_, 1);

  auto* line = new QFrame(this);
  line->setFrameShape(QFrame::HLine);
  line->setFrameShadow(QFrame::Sunken);
  right->addWidget(line);
  auto* buttons = new QHBoxLayout;
  buttons->setContentsMargins(12, 10, 12, 12);
  buttons->addStretch();
  buttons->addWidget(Button(form.cmdBack, "cmdBack", this, "b"));
  // "Next >" and "Finish >" both go on with N.
  next_ = Button(form.cmdNext, "cmdNext", this, "n");
  next_->setDefault(true);
  buttons->addWidget(next_);
  buttons->addSpacing(12);
  cancel_ = Button(form.cmdCancel, "cmdCancel", this, "cf");
  buttons->addWidget(cancel_);
  right->addLayout(buttons);
  root->addLayout(right, 1);
  // A focused button takes Return itself, as in a dialog.
  for (QPushButton* button : findChildren<QPushButton*>()) button->setAutoDefault(true);
  resize(sizeHint().expandedTo(QSize(800, 600)));

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
  if (plain && key == Qt::Key_Escape && ClickIfLive(cancel_)) return;
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
