#include "wizard_window.h"

#include <QCloseEvent>
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

QPushButton* Button(CommandButton& model, const char* name, QWidget* parent) {
  auto* button = new QPushButton(parent);
  button->setObjectName(QString::fromLatin1(name));
  button->setMinimumWidth(88);
  BindButton(model, button);
  return button;
}

}  // namespace

WizardWindow::WizardWindow(fTessaly& form) : form_(&form) {
  setObjectName(QStringLiteral("fTessaly"));
  resize(800, 600);
  setMinimumSize(720, 560);

  auto* root = new QHBoxLayout(this);
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
  buttons->addWidget(Button(form.cmdBack, "cmdBack", this));
  buttons->addWidget(Button(form.cmdNext, "cmdNext", this));
  buttons->addSpacing(12);
  buttons->addWidget(Button(form.cmdCancel, "cmdCancel", this));
  right->addLayout(buttons);
  root->addLayout(right, 1);

  Follow(form.changed, this, [this] {
    if (form_ != nullptr) setWindowTitle(ToQt(form_->caption()));
  });
  form.unloaded.Connect([alive = QPointer<WizardWindow>(this)] {
    if (!alive) return;
    alive->form_ = nullptr;
    alive->close();
  });
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
