// Step 3: where the renamed files go, and the preview of every new path.

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "bindings.h"
#include "model_widgets.h"
#include "rich_text_view.h"
#include "wizard/wizard_texts.h"
#include "wizard_pages.h"

namespace tessaly::qt {

namespace {

QWidget* DestinationChoice(fTessaly& form, QWidget* parent) {
  auto* choice = new QWidget(parent);
  auto* layout = new QGridLayout(choice);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* same = new ModelRadioButton(choice);
  same->setObjectName(QStringLiteral("optMoveSameFolder"));
  same->setToolTip(QStringLiteral("Gives each file its new name in the folder it is in"));
  BindOption(form.optMoveSameFolder, same, "s");
  auto* other = new ModelRadioButton(choice);
  other->setObjectName(QStringLiteral("optMoveNewFolder"));
  other->setToolTip(QStringLiteral("Moves the renamed files into a folder you choose"));
  BindOption(form.optMoveNewFolder, other, "m");
  QPushButton* browse = NewButton(form.cmdSelectFolder, "cmdSelectFolder", choice, "o");
  auto* folder = new QLabel(choice);
  folder->setObjectName(QStringLiteral("lFolder"));
  folder->setTextInteractionFlags(Qt::TextSelectableByMouse);
  BindPathLabel(form.lFolder, folder, [&form](std::string_view path) { return form.ShownPath(path); });
  layout->addWidget(same, 0, 0);
  layout->addWidget(other, 1, 0);
  layout->addWidget(browse, 1, 1);
  layout->addWidget(folder, 2, 0, 1, 3);
  layout->setColumnStretch(2, 1);
  return choice;
}

// `pFolderPath`: lies over the choice and hides it while paths are part of
// the conversion.
QWidget* IncludePathPanel(fTessaly& form, QWidget* parent) {
  auto* panel = new QWidget(parent);
  panel->setObjectName(QStringLiteral("pFolderPath"));
  panel->setAutoFillBackground(true);
  auto* layout = new QVBoxLayout(panel);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* info = new QLabel(panel);
  info->setObjectName(QStringLiteral("lInfoPath"));
  info->setWordWrap(true);
  info->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  BindLabel(form.lInfoPath, info);
  layout->addWidget(info, 1);
  BindEnabledVisible(form.pFolderPath, panel);
  return panel;
}

}  // namespace

QWidget* BuildReviewPage(fTessaly& form) {
  PageFrame frame = MakePage("pStep3");
  FollowHeading(form.pStep[3], frame.heading);

  auto* destination = new QGroupBox(frame.page);
  destination->setObjectName(QStringLiteral("Frame1"));
  BindFrame(form.Frame1, destination);
  auto* inside = new QGridLayout(destination);
  inside->addWidget(DestinationChoice(form, destination), 0, 0);
  QWidget* panel = IncludePathPanel(form, destination);
  inside->addWidget(panel, 0, 0);
  panel->raise();
  // The frame keeps its height; while the preview is hidden the room below
  // stays empty rather than stretching the frame.
  destination->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
  frame.body->addWidget(destination);

  auto* heading = new QLabel(QString::fromUtf8(kPreviewHeading.data(),
                                               static_cast<qsizetype>(kPreviewHeading.size())),
                             frame.page);
  heading->setObjectName(QStringLiteral("lPreviewHeading"));
  QFont bold = heading->font();
  bold.setBold(true);
  heading->setFont(bold);
  frame.body->addWidget(heading);

  auto* preview = new RichTextView(form.tOutput, frame.page);
  preview->setObjectName(QStringLiteral("tOutput"));
  frame.body->addWidget(preview, 1);
  frame.body->addStretch(0);
  return frame.page;
}

}  // namespace tessaly::qt
