// Step 2: the placements, the replace pair, the options and the example.

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "bindings.h"
#include "model_widgets.h"
#include "wizard_pages.h"

namespace tessaly::qt {

namespace {

QComboBox* Placement(ComboBox& model, int index, QWidget* parent) {
  auto* box = new QComboBox(parent);
  box->setObjectName(QStringLiteral("cboBatch%1").arg(index));
  box->setMaxVisibleItems(21);
  box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  box->setMinimumContentsLength(12);
  BindComboBox(model, box);
  return box;
}

QPushButton* Dots(CommandButton& model, const char* name, QWidget* parent) {
  auto* button = new QPushButton(parent);
  button->setObjectName(QString::fromLatin1(name));
  button->setFixedWidth(30);
  BindButton(model, button);
  return button;
}

QLabel* Caption(const char* text, QWidget* parent) {
  auto* label = new QLabel(QString::fromLatin1(text), parent);
  label->setTextFormat(Qt::PlainText);
  return label;
}

ModelCheckBox* Option(CheckBox& model, const char* name, QWidget* parent) {
  auto* box = new ModelCheckBox(parent);
  box->setObjectName(QString::fromLatin1(name));
  BindCheckBox(model, box);
  return box;
}

// A box with its "..." button at its right end.
QWidget* WithDots(QWidget* box, QPushButton* dots, QWidget* parent) {
  auto* row = new QWidget(parent);
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(2);
  layout->addWidget(box, 1);
  layout->addWidget(dots);
  return row;
}

}  // namespace

QWidget* BuildSettingsPage(fTessaly& form) {
  PageFrame frame = MakePage("pStep2");
  FollowHeading(form.pStep[2], frame.heading);

  auto* naming = new QGroupBox(QStringLiteral("File Nameing"), frame.page);
  naming->setObjectName(QStringLiteral("Frame3"));
  auto* rows = new QVBoxLayout(naming);
  rows->setSpacing(6);

  // The six placements, two to a row joined by "+", then the replace pair.
  auto* placements = new QGridLayout;
  placements->setHorizontalSpacing(8);
  placements->setVerticalSpacing(5);
  placements->setColumnStretch(0, 1);
  placements->setColumnStretch(2, 1);
  for (int row = 0; row < 3; ++row) {
    placements->addWidget(Placement(form.cboBatch[2 * row], 2 * row, naming), row, 0);
    auto* plus = Caption("+", naming);
    plus->setAlignment(Qt::AlignCenter);
    placements->addWidget(plus, row, 1);
    placements->addWidget(Placement(form.cboBatch[2 * row + 1], 2 * row + 1, naming), row, 2);
  }
  placements->setRowMinimumHeight(3, 4);
  placements->addWidget(Caption("Replace:", naming), 4, 0);
  placements->addWidget(Caption("With", naming), 4, 2);
  placements->addWidget(WithDots(Placement(form.cboBatch[6], 6, naming),
                                 Dots(form.cmdReplaceAdv, "cmdReplaceAdv", naming), naming),
                        5, 0);
  placements->addWidget(WithDots(Placement(form.cboBatch[7], 7, naming),
                                 Dots(form.cmdReplaceAdv2, "cmdReplaceAdv2", naming), naming),
                        5, 2);
  rows->addLayout(placements);
  rows->addSpacing(6);

  // The options in three equal columns.
  rows->addWidget(Caption("Additional Options:", naming));
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(10);
  grid->setVerticalSpacing(4);
  for (int column = 0; column < 3; ++column) grid->setColumnStretch(column, 1);
  struct Cell {
    CheckBox fTessaly::*box;
    const char* name;
  };
  const Cell options[4][3] = {
      {{&fTessaly::chkShortExtension, "chkShortExtension"},
       {&fTessaly::chkCapitalize, "chkCapitalize"},
       {&fTessaly::chkAllowSpaces, "chkAllowSpaces"}},
      {{&fTessaly::chkLongExtension, "chkLongExtension"},
       {&fTessaly::chkRemoveu, "chkRemoveu"},
       {&fTessaly::chkRemoveNumbers, "chkRemoveNumbers"}},
      {{&fTessaly::chkRemoveDoubleSpace, "chkRemoveDoubleSpace"},
       {&fTessaly::chkLowercase, "chkLowercase"},
       {&fTessaly::chkUpperCase, "chkUpperCase"}},
      {{&fTessaly::chkExtra, "chkExtra"},
       {&fTessaly::chkFormatting, "chkFormatting"},
       {&fTessaly::chkFixSpacing, "chkFixSpacing"}},
  };
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 3; ++column) {
      const Cell& cell = options[row][column];
      QWidget* widget = Option(form.*cell.box, cell.name, naming);
      if (cell.box == &fTessaly::chkFormatting) {
        auto* pair = new QWidget(naming);
        auto* layout = new QHBoxLayout(pair);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(4);
        layout->addWidget(widget);
        layout->addWidget(Dots(form.cmdUnwantedFormat, "cmdUnwantedFormat", naming));
        layout->addStretch();
        widget = pair;
      }
      grid->addWidget(widget, row, column);
    }
  }
  grid->setRowMinimumHeight(4, 8);
  grid->addWidget(Caption("Example Output:", naming), 5, 0);
  grid->addWidget(Option(form.chkRealFiles, "chkRealFiles", naming), 5, 1);
  grid->addWidget(Option(form.chkIncludePaths, "chkIncludePaths", naming), 5, 2);
  rows->addLayout(grid);

  auto* example = new QPlainTextEdit(naming);
  example->setObjectName(QStringLiteral("txtExample"));
  example->setLineWrapMode(QPlainTextEdit::NoWrap);
  example->setFixedHeight(example->fontMetrics().lineSpacing() * 3 +
                          2 * example->frameWidth() + 12);
  BindReadOnlyText(form.txtExample, example);
  rows->addWidget(example);

  frame.body->addWidget(naming);
  frame.body->addStretch();
  return frame.page;
}

}  // namespace tessaly::qt
